// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QString>
#include <QXmlStreamWriter>

#include <initializer_list>
#include <utility>

namespace orrin::demo {

/*! Writes a SOAP 1.2 envelope; what is written between construction and finish() stands in its body. */
class SoapWriter
{
public:
    using Attribute = std::pair<QLatin1StringView, QString>;

    SoapWriter();

    void start(QLatin1StringView ns, QLatin1StringView name,
               std::initializer_list<Attribute> attributes = {});
    void end();
    void text(const QString &text);
    void element(QLatin1StringView ns, QLatin1StringView name, const QString &text);
    void element(QLatin1StringView ns, QLatin1StringView name, qint64 value);
    void element(QLatin1StringView ns, QLatin1StringView name, bool value);
    void empty(QLatin1StringView ns, QLatin1StringView name,
               std::initializer_list<Attribute> attributes = {});

    /*! Closes what is open and gives the document. */
    QByteArray finish();

private:
    QByteArray m_document;
    QXmlStreamWriter m_xml;
};

} // namespace orrin::demo
