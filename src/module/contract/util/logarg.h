// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QByteArray>

namespace orrin::olog {

/*! A text for the log together with the sub-modules that it belongs to. */
class ORRINSDK_UTIL_EXPORT Arg
{
public:
    Arg(const QByteArray &text, unsigned subModules) : m_text(text), m_subModules(subModules) {}

    const char *str() const { return m_text.constData(); }
    unsigned subMod() const { return m_subModules; }

private:
    QByteArray m_text;
    unsigned m_subModules;
};

} // namespace orrin::olog
