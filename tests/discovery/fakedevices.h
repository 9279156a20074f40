// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QNetworkDatagram>
#include <QObject>
#include <QUdpSocket>

#include <functional>
#include <memory>
#include <vector>

namespace orrin::test {

/*! Devices at one port of 127.0.0.1 that answer each question as a test says, from their own address or from others of the loopback
    network. One thread. */
class FakeDevices : public QObject
{
    Q_OBJECT

public:
    /*! The datagrams that answer the question with this message id. */
    using Answers = std::function<QList<QByteArray>(const QByteArray &messageId)>;

    explicit FakeDevices(Answers answers) : m_answers(std::move(answers))
    {
        m_open = m_socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
        connect(&m_socket, &QUdpSocket::readyRead, this, &FakeDevices::read);
    }

    bool isOpen() const { return m_open; }
    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_socket.localPort()); }
    int questions() const { return m_questions; }
    QByteArray lastQuestion() const { return m_lastQuestion; }

    /*! Sends the answers from this address, which belongs to the loopback network, in place of the one that was asked. */
    bool answerFrom(const QString &address)
    {
        m_others.push_back(std::make_unique<QUdpSocket>());
        return m_others.back()->bind(QHostAddress(address), 0);
    }

private:
    void read()
    {
        while (m_socket.hasPendingDatagrams()) {
            const QNetworkDatagram question = m_socket.receiveDatagram();
            m_lastQuestion = question.data();
            ++m_questions;
            const qsizetype begin = m_lastQuestion.indexOf("MessageID>") + 10;
            const QByteArray id = m_lastQuestion.sliced(begin, m_lastQuestion.indexOf('<', begin) - begin);
            const QList<QByteArray> answers = m_answers(id);
            for (const QByteArray &answer : answers) {
                QUdpSocket &socket = m_others.empty() ? m_socket : *m_others[m_next++ % m_others.size()];
                socket.writeDatagram(answer, question.senderAddress(), quint16(question.senderPort()));
            }
        }
    }

    Answers m_answers;
    QUdpSocket m_socket;
    std::vector<std::unique_ptr<QUdpSocket>> m_others;
    std::size_t m_next = 0;
    bool m_open = false;
    int m_questions = 0;
    QByteArray m_lastQuestion;
};

} // namespace orrin::test
