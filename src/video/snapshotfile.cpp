// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/snapshotfile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

namespace orrin {

bool writeSnapshotFile(const QImage &image, const QString &path)
{
    const QFileInfo target(path);
    // A device or a pipe must not be replaced by a file, nor be waited for.
    if (target.exists() && !target.isFile())
        return false;

    const QByteArray format = target.suffix().toLower().toLatin1();
    if (format.isEmpty())
        return false;
    QBuffer encoded;
    QImageWriter writer(&encoded, format);
    if (!encoded.open(QIODevice::WriteOnly) || !writer.write(image))
        return false;

    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(encoded.data()) == encoded.size() && file.commit();
}

} // namespace orrin
