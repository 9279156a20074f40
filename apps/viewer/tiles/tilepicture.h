// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orrin {
class AbstractStreamProcessor;
class QmlVideoDisplay;
class QmlVideoPlaybackController;
}

/*! What a tile does with the stream of its `VideoOutput`: which quality it asks for, whether it runs, and what there is to see.
    GUI thread.

    The quality is told to a new stream before it opens, so that a small tile never fetches the large picture. A stream that plays a
    recording is not stopped, because it would come back live. */
class TilePicture : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    /*! The `VideoOutput`. It may go before this object. */
    Q_PROPERTY(QQuickItem *output READ output WRITE setOutput NOTIFY outputChanged FINAL)
    /*! Asks for the stream of high quality. */
    Q_PROPERTY(bool high READ high WRITE setHigh NOTIFY highChanged FINAL)
    /*! False stops the stream; its last picture stays. */
    Q_PROPERTY(bool running READ running WRITE setRunning NOTIFY runningChanged FINAL)
    Q_PROPERTY(State state READ state NOTIFY stateChanged FINAL)
    /*! Plain text; empty unless the state is Failed. */
    Q_PROPERTY(QString errorText READ errorText NOTIFY stateChanged FINAL)
    /*! The pictures of this camera so far; it stops at EnoughPictures, so that not every frame changes a property. */
    Q_PROPERTY(int pictures READ pictures NOTIFY picturesChanged FINAL)
    /*! Whether a stream that has shown pictures waits for more. */
    Q_PROPERTY(bool waiting READ waiting NOTIFY waitingChanged FINAL)

public:
    enum State { Empty, Waiting, Showing, Failed };
    Q_ENUM(State)

    static constexpr int EnoughPictures = 4;

    explicit TilePicture(QObject *parent = nullptr);

    QQuickItem *output() const { return m_output; }
    void setOutput(QQuickItem *output);
    bool high() const { return m_high; }
    void setHigh(bool high);
    bool running() const { return m_running; }
    void setRunning(bool running);
    State state() const { return m_state; }
    QString errorText() const { return m_errorText; }
    int pictures() const { return m_pictures; }
    bool waiting() const;

    /*! Digital zoom by \a factor around the middle; 0 brings the whole picture back. */
    Q_INVOKABLE void zoom(double factor);

Q_SIGNALS:
    void outputChanged();
    void highChanged();
    void runningChanged();
    void stateChanged();
    void picturesChanged();
    void waitingChanged();

private:
    void beginStream();
    void forgetPictures();
    void countPicture();
    void takeError();
    void sendQuality();
    void sendRunning();
    void setState(State state, const QString &errorText = {});
    orrin::AbstractStreamProcessor *processor() const;

    QPointer<QQuickItem> m_output;
    QPointer<orrin::QmlVideoDisplay> m_display;
    QPointer<QQuickItem> m_panel; //!< the output's own panel of messages
    bool m_high = false;
    bool m_running = true;
    bool m_qualityWaits = false;
    State m_state = Empty;
    QString m_errorText;
    int m_pictures = 0;
};
