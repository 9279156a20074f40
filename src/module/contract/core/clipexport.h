// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/channeluid.h>

#include <QObject>
#include <QString>

#include <memory>

namespace orrin {

class ClipExportPrivate;

/*! Writes a span of a recording to an MP4 file (ISO/IEC 14496-12), the coded pictures as the recorder stores them. Main thread.

    The file appears under its name when it is whole: until then it is written as NAME.part beside it, which goes away when the export
    fails, is cancelled, or the object ends. Gaps of the recording are left out. Sound is not exported. One export at a time. */
class ORRINSDK_CORE_EXPORT ClipExport : public QObject
{
    Q_OBJECT
public:
    struct Request
    {
        ChannelUID channel;
        int trackId = 1;
        qint64 fromMs = 0; //!< since 1970 UTC; the clip begins with the key frame at or before it
        qint64 toMs = 0;
        QString fileName;  //!< absolute; a file of that name is replaced at the end
    };

    /*! An export stops, and fails, when the disk has less than this left. */
    static constexpr qint64 SpareBytes = 64LL << 20;
    /*! The longest span. */
    static constexpr qint64 LongestMs = 24LL * 3'600'000;

    explicit ClipExport(QObject *parent = nullptr);
    ~ClipExport() override;

    /*! The outcome comes by finished() or failed(), through the event loop. Does nothing while an export is under way. */
    void start(const Request &request);
    /*! Ends the export without a signal; nothing is left of it. */
    void cancel();
    bool isRunning() const;
    /*! Of the span, 0 to 1. */
    double progress() const;

Q_SIGNALS:
    void progressChanged();
    void finished(const QString &fileName);
    /*! \a reason is a sentence for the user. */
    void failed(const QString &reason);

private:
    std::unique_ptr<ClipExportPrivate> d;
};

} // namespace orrin
