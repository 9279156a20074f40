// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/olog.h>

#include <QByteArray>

namespace orrin::olog {

/*! A module that logs: its number and its name. */
class ORRINSDK_UTIL_EXPORT LogModule
{
public:
    LogModule(Module module, const QByteArray &name) : m_module(module), m_name(name) {}

    Module module() const { return m_module; }
    const char *name_cstr() const { return m_name.constData(); }

private:
    Module m_module;
    QByteArray m_name;
};

} // namespace orrin::olog
