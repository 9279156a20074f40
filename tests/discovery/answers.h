// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace orrin::test {

/*! One device of an answer. */
struct AnsweringDevice
{
    QString uuid = QStringLiteral("urn:uuid:5f5a69c2-e0ae-504f-829b-000000000001");
    QString addresses = QStringLiteral("http://127.0.0.1:8080/onvif/device_service");
    QString scopes = QStringLiteral("onvif://www.onvif.org/name/Gate onvif://www.onvif.org/hardware/C-1");
    QString types = QStringLiteral("dn:NetworkVideoTransmitter");

    QByteArray match() const
    {
        return QStringLiteral("<d:ProbeMatch><a:EndpointReference><a:Address>%1</a:Address></a:EndpointReference>"
                              "<d:Types>%2</d:Types><d:Scopes>%3</d:Scopes><d:XAddrs>%4</d:XAddrs>"
                              "<d:MetadataVersion>1</d:MetadataVersion></d:ProbeMatch>")
            .arg(uuid, types, scopes, addresses)
            .toUtf8();
    }
};

/*! An answer to the question \a relatesTo with \a matches in it. */
inline QByteArray answerWith(const QByteArray &relatesTo, const QByteArray &matches)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\""
           " xmlns:a=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\""
           " xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\""
           " xmlns:dn=\"http://www.onvif.org/ver10/network/wsdl\">"
           "<s:Header><a:MessageID>urn:uuid:1</a:MessageID><a:RelatesTo>" +
           relatesTo + "</a:RelatesTo></s:Header><s:Body><d:ProbeMatches>" + matches +
           "</d:ProbeMatches></s:Body></s:Envelope>";
}

inline QByteArray answerOf(const QByteArray &relatesTo, const AnsweringDevice &device)
{
    return answerWith(relatesTo, device.match());
}

} // namespace orrin::test
