// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/recordingcatalogue.h"
#include "core/session/onvif/soapclient.h"

#include <contract/core/playbackerror.h>
#include <contract/core/recordedspans.h>

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace orrin {

class DeviceLink;

/*! Asks a device for its recordings: which there are, how long they are by now, when they hold data, where they are played. Belongs to one DeviceLink.
    Main thread. Callbacks come by the event loop, once each; with the reader go its questions, without a callback. */
class RecordingReader : public QObject
{
    Q_OBJECT
public:
    using Place = RecordingCatalogue::Place;
    using KnownCallback = std::function<void()>;
    using PlaceCallback = std::function<void(const std::optional<Place> &)>;
    using UriCallback = std::function<void(const SoapAnswer &)>;
    /*! What changed inside the stretch that was asked for; nothing when the device tells no such changes. */
    using ChangesCallback = std::function<void(const std::optional<QList<recordingservice::DataChange>> &)>;

    explicit RecordingReader(DeviceLink *link, QObject *parent = nullptr);
    ~RecordingReader() override;

    /*! Reads the list of recordings anew; questions wait for it. */
    void read();
    /*! Called once the list is there, or cannot be had: see error(). */
    void whenKnown(KnownCallback callback);
    /*! Why there is no list; nothing when there is. */
    const std::optional<PlaybackError> &error() const { return m_error; }
    const RecordingCatalogue &catalogue() const { return m_catalogue; }

    /*! The place with its bounds as they are now. */
    void refresh(int channelId, int trackId, StreamQuality quality, PlaceCallback callback);
    void requestUri(const Place &place, UriCallback callback);
    void requestChanges(const Place &place, qint64 fromMs, qint64 toMs, ChangesCallback callback);

private:
    using Handler = void (RecordingReader::*)(const SoapAnswer &);

    SoapClient::Request searchRequest(const QString &method) const;
    void call(const SoapClient::Request &request, Handler handler);
    void onFound(const SoapAnswer &answer);
    void fetchRecordings();
    void onRecordings(const SoapAnswer &answer);
    void readPixels();
    void finish();
    void fail(const SoapAnswer &answer);
    void fetchChanges(const QString &token, QList<recordingservice::DataChange> changes, int rounds, ChangesCallback callback);
    void endSearch(const QString &token);

    DeviceLink *m_link;
    RecordingCatalogue m_catalogue;
    QList<recordingservice::Recording> m_found;
    QString m_searchToken;
    QHash<QString, qint64> m_pixels;
    std::optional<PlaybackError> m_error;
    std::vector<KnownCallback> m_waiting;
    bool m_reading = false;
    bool m_known = false;
    int m_rounds = 0;
};

} // namespace orrin
