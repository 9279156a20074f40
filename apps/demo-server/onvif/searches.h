// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/recordings.h"

#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <map>
#include <optional>

namespace orrin::demo {

/*! The searches that clients have begun and not ended. A search belongs to the user who began it, and is
 * forgotten when it is not used for its time. GUI thread. */
class Searches
{
public:
    static constexpr std::size_t MaximumCount = 16;
    static constexpr qsizetype MaximumEvents = 100'000;
    static constexpr std::chrono::seconds ShortestLifetime{5};
    static constexpr std::chrono::seconds LongestLifetime{300};

    /*! A recording, or one of its tracks, began or ceased to have data. */
    struct Change
    {
        enum class Subject : quint8 { Recording, Video, Audio };

        qint64 timeMs = 0;
        int recording = 0; //!< index into Search::recordings
        Subject subject = Subject::Recording;
        bool begins = false;
        bool isStartState = false;
    };

    struct Search
    {
        enum class Kind { Recordings, Events };

        Kind kind = Kind::Recordings;
        QString user;
        std::chrono::seconds lifetime{60};
        QStringList recordings; //!< tokens
        QList<Change> events;
        qsizetype given = 0; //!< results that were given already
        QElapsedTimer used = {};
    };

    /*! The token of the search, or nothing when there are too many. */
    std::optional<QString> begin(Search search);

    /*! The search of that kind, null when \a user has none with this token. It counts as used. */
    Search *use(const QString &token, const QString &user, Search::Kind kind);

    bool end(const QString &token, const QString &user);
    void reset() { m_searches.clear(); }

private:
    void forgetOld();

    std::map<QString, Search> m_searches;
    int m_next = 0;
};

} // namespace orrin::demo
