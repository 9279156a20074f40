// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/playmode.h>

#include <QString>

#include <memory>

namespace orrin {

class SubtitlesGeneratorPrivate;
class VideoFrame;

/*! Makes the text over a picture from a template. Main thread; one object belongs to one item. */
class ORRINSDK_CORE_EXPORT SubtitlesGenerator
{
public:
    SubtitlesGenerator();
    ~SubtitlesGenerator();
    SubtitlesGenerator(const SubtitlesGenerator &) = delete;
    SubtitlesGenerator &operator=(const SubtitlesGenerator &) = delete;

    /*! Reads the template once, for all texts that follow; docs/subtitle-tags.md lists its tags. What cannot be read stands in the
        text as it is. Names that come from devices are escaped, so that they bring no markup into styled text; with \a plain
        they go in as they are, for text that is shown without markup. */
    void compileSubtitleTemplate(const QString &subtitleTemplate, bool plain);

    /*! What the next text is about: the frame shown, the server's and the client's time in milliseconds since 1970 UTC, what the stream
        is doing, and its speed in its own units. The frame is read during the call and not kept. */
    void setParameters(const VideoFrame &frame, long long serverTimeMs, long long clientTimeMs, StreamState state,
                       int seekSpeed);

    /*! The text; empty before the first template. */
    QString generate() const;

private:
    std::unique_ptr<SubtitlesGeneratorPrivate> d;
};

} // namespace orrin
