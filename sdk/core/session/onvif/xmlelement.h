// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

#include <optional>
#include <vector>

namespace orrin {

/*! One element of an XML text with everything below it. A value; safe on any thread.

    Devices answer in XML that nobody checked. parse() therefore refuses what could hurt: a document type,
    nesting above DepthLimit, more than ElementLimit elements, and a text that does not end. */
class ORRINSDK_CORE_EXPORT XmlElement
{
public:
    static constexpr int DepthLimit = 64;
    static constexpr int ElementLimit = 100000;

    /*! The root element of \a xml, or nothing when it cannot be read. */
    static std::optional<XmlElement> parse(const QByteArray &xml);

    bool isNull() const { return name.isEmpty(); }

    /*! The first child of that local name, whatever its namespace; a null element when there is none. */
    const XmlElement &child(QStringView localName) const;
    /*! The element at the end of \a path, each step a child; a null element when one is missing. */
    const XmlElement &at(std::initializer_list<QStringView> path) const;
    /*! All children of that local name. */
    std::vector<const XmlElement *> all(QStringView localName) const;
    QString attribute(QStringView localName) const;
    /*! The text without blanks at its ends. */
    QString value() const { return text.trimmed(); }

    QString name; //!< local
    QString namespaceUri;
    QString text;
    /*! Where \a text is a qualified name, the namespace of its prefix. */
    QString textNamespace;
    QList<QPair<QString, QString>> attributes;
    std::vector<XmlElement> children;
};

} // namespace orrin
