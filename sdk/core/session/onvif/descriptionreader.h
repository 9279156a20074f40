// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/loginfailure.h"
#include "core/session/onvif/siteassembler.h"

#include <QObject>

#include <functional>
#include <optional>

namespace orrin {

class DeviceLink;
class SoapAnswer;

/*! Reads what a device has, after a login and after each change: site and rights, profiles, masks. The result
    goes into the link. Main thread.

    One reader, one use. The callback comes by the event loop, once, unless the reader is deleted before. */
class DescriptionReader : public QObject
{
    Q_OBJECT
public:
    /*! Nothing: the link's description is new. */
    using Callback = std::function<void(const std::optional<LoginFailure> &)>;

    DescriptionReader(DeviceLink *link, Callback callback, QObject *parent = nullptr);

    void start();

private:
    void readSite();
    void readUsers();
    void readProfiles();
    void onProfiles(const SoapAnswer &answer, bool newer);
    void readMasks();
    void finish();
    void fail(const LoginFailure &failure);

    DeviceLink *m_link;
    Callback m_callback;
    SiteParts m_parts;
};

} // namespace orrin
