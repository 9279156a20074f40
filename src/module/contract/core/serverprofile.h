// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QString>

namespace orrin {

/*! A server's version. A value. */
class ORRINSDK_CORE_EXPORT ServerProfile
{
public:
    ServerProfile() = default;
    /*! Reads "major.minor.patch.build"; with three numbers the last is the build, and what is missing or no number is 0. */
    explicit ServerProfile(const QString &version);

    QString version() const { return m_version; }
    unsigned long long majorVersion() const { return m_major; }
    unsigned long long minorVersion() const { return m_minor; }
    unsigned long long buildVersion() const { return m_build; }

private:
    QString m_version;
    unsigned long long m_major = 0;
    unsigned long long m_minor = 0;
    unsigned long long m_build = 0;
};

} // namespace orrin
