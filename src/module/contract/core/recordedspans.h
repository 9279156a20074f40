// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QList>
#include <QObject>

namespace orrin {

/*! A stretch of time that is recorded without a gap, in milliseconds since 1970 UTC; \a toMs is not part of it. A value. */
struct RecordedSpan
{
    qint64 fromMs = 0;
    qint64 toMs = 0;

    friend bool operator==(const RecordedSpan &, const RecordedSpan &) = default;
};

/*! When one track was recorded, for timelines. Main thread; shared by whoever holds its strong pointer.

    Made by Connection::createRecordedSpans(). It begins with nothing known, is filled in the background, and is kept up to date while somebody
    holds it and the server is connected: each change is told by changed(). Without a connection it keeps what it last knew. */
class ORRINSDK_CORE_EXPORT RecordedSpans : public QObject
{
    Q_OBJECT
public:
    enum class State : int {
        Unknown = 0,    //!< nothing has been answered yet
        Known = 1,
        Unavailable = 2 //!< the server tells no recording of this track, or refuses
    };
    Q_ENUM(State)

    /*! Spans beyond this number are left out, the oldest first. */
    static constexpr qsizetype SpanLimit = 50'000;

    explicit RecordedSpans(QObject *parent = nullptr);
    ~RecordedSpans() override;

    State state() const { return m_state; }
    /*! Ascending; they neither touch nor overlap. The last one grows while the track records. */
    const QList<RecordedSpan> &spans() const { return m_spans; }

    /*! For the server's session. \a spans may come in any order; each call emits changed() if anything changed. */
    void setSpans(QList<RecordedSpan> spans);
    void setUnavailable();

Q_SIGNALS:
    void changed();

private:
    State m_state = State::Unknown;
    QList<RecordedSpan> m_spans;
};

} // namespace orrin
