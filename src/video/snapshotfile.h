// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QImage;
class QString;

namespace orrin {

/*! Writes \a image to \a path, in the format of the path's suffix and in its default quality. False when that can't be done: a
    suffix of no format, a folder or a special file in the place, no room, no right to write. A file is there whole or not at all, and
    what was there before stays when it fails. Blocks until the bytes are on the disk. */
bool writeSnapshotFile(const QImage &image, const QString &path);

} // namespace orrin
