// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/scopes.h"

#include "site/site.h"

#include <QUrl>

namespace orrin::demo {

using namespace Qt::StringLiterals;

QStringList scopesOf(const RecorderInfo &recorder)
{
    return {u"onvif://www.onvif.org/name/"_s + QString::fromLatin1(QUrl::toPercentEncoding(recorder.name)),
            u"onvif://www.onvif.org/hardware/Demo%20Recorder"_s, u"onvif://www.onvif.org/type/video_encoder"_s};
}

} // namespace orrin::demo
