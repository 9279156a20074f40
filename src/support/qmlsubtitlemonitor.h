// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/util/requestid.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlAbstractStreamProvider;
class QmlSubtitleMonitorPrivate;

/*! The text over a stream's picture, made of a template and the frame that is shown. Main thread.

    Finds the stream by its four keys and never keeps it alive. While there is no stream or no frame the text
   stays as it was. */
class ORRINSDKQML_EXPORT QmlSubtitleMonitor : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SubtitleMonitor)

    /*! Styled text. Each refresh signals, also with the same text. */
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY subtitleChanged FINAL)
    /*! Text with tags in angle brackets, see docs/subtitle-tags.md. */
    Q_PROPERTY(QString subtitleTemplate READ subtitleTemplate WRITE setSubtitleTemplate NOTIFY
                   subtitleTemplateChanged FINAL)
    /*! The milliseconds after a refresh in which update() does nothing. A pause that runs keeps its length.
     */
    Q_PROPERTY(int updateMs READ updateMs WRITE setUpdateMs NOTIFY updateMsChanged FINAL)
    /*! The keys of the stream: its channel's address and the number that the video item publishes. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    Q_PROPERTY(orrin::RequestId streamId READ streamId WRITE setStreamId NOTIFY streamIdChanged FINAL)

public:
    explicit QmlSubtitleMonitor(QObject *parent = nullptr);
    ~QmlSubtitleMonitor() override;

    QString subtitle() const;
    QString subtitleTemplate() const;
    void setSubtitleTemplate(const QString &subtitleTemplate);
    int updateMs() const;
    void setUpdateMs(int milliseconds);
    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    RequestId streamId() const;
    void setStreamId(RequestId id);

public Q_SLOTS:
    /*! Makes the text anew, unless the last time was less than updateMs ago. A call that comes too soon is
       not made up for: the next frame brings another. */
    void update();

Q_SIGNALS:
    void subtitleChanged();
    void subtitleTemplateChanged();
    void updateMsChanged();
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void streamIdChanged();

protected:
    /*! A monitor of streams from \a provider, which is borrowed for the life of the object. */
    QmlSubtitleMonitor(QmlAbstractStreamProvider *provider, QObject *parent);

private:
    Q_DISABLE_COPY_MOVE(QmlSubtitleMonitor)

    QmlSubtitleMonitorPrivate *d_func() const { return d_ptr.get(); }
    void updateAndEmit(void (QmlSubtitleMonitor::*changed)());

    std::unique_ptr<QmlSubtitleMonitorPrivate> d_ptr;
};

} // namespace orrin
