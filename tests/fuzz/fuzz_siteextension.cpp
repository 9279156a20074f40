// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteextensionreader.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto object = SiteExtensionReader::parse(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!object)
        return 0;
    const SiteExtension site = SiteExtensionReader::readSite(*object);
    if (site.peers.size() > SiteExtensionReader::PeerLimit ||
        (site.cameras && site.cameras->size() > SiteExtensionReader::CameraLimit))
        std::abort();
    if (SiteExtensionReader::readChanges(*object).revision < 0)
        std::abort();
    return 0;
}
