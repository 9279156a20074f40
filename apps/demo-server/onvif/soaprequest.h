// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QXmlStreamAttributes>

#include <optional>

namespace orrin::demo {

/*! An element of a parsed request. A plain value. */
struct XmlElement
{
    QString ns;
    QString name;
    QString text;
    QXmlStreamAttributes attributes;
    QList<XmlElement> children;

    /*! The first child with this local name, whatever its namespace; null without one. */
    const XmlElement *child(QStringView childName) const;

    /*! The trimmed text of that child; empty without one. */
    QString childText(QStringView childName) const;
};

/*! A SOAP 1.2 request: the element of its body, and the WS-Security header if it has one. */
struct SoapRequest
{
    enum class Error { None, NotWellFormed, WrongVersion };

    XmlElement operation;
    std::optional<XmlElement> usernameToken;
    Error error = Error::None;

    /*! Parses \a body. Document types, more than 32 levels and more than 10000 elements count as not well
     * formed. */
    static SoapRequest parse(const QByteArray &body);
};

} // namespace orrin::demo
