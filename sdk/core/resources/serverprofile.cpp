// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/serverprofile.h>

#include <QStringList>

namespace orrin {

namespace {

// The leading digits count, so that "12-beta" is 12.
unsigned long long leadingNumber(const QString &text)
{
    qsizetype length = 0;
    while (length < text.size() && text.at(length) >= u'0' && text.at(length) <= u'9')
        ++length;
    return QStringView(text).first(length).toULongLong();
}

} // namespace

ServerProfile::ServerProfile(const QString &version) : m_version(version)
{
    const QStringList parts = version.trimmed().split(u'.');
    m_major = leadingNumber(parts.value(0));
    m_minor = leadingNumber(parts.value(1));
    m_build = leadingNumber(parts.size() == 3 ? parts.value(2) : parts.value(3));
}

} // namespace orrin
