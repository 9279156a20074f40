// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/parameterlist.h"

namespace orrin::rtsp {

ParameterList::ParameterList(QByteArrayView text, char separator)
{
    QByteArray name;
    QByteArray value;
    bool inValue = false;
    bool inQuotes = false;
    const auto flush = [&] {
        name = name.trimmed().toLower();
        if (!name.isEmpty() && m_parameters.size() < MaxParameters)
            m_parameters.append({name, value.trimmed()});
        name.clear();
        value.clear();
        inValue = false;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inQuotes) {
            if (c == '\\' && i + 1 < text.size())
                value += text[++i];
            else if (c == '"')
                inQuotes = false;
            else
                value += c;
        } else if (c == separator) {
            flush();
        } else if (!inValue && c == '=') {
            inValue = true;
        } else if (inValue && c == '"' && value.trimmed().isEmpty()) {
            inQuotes = true;
        } else {
            (inValue ? value : name) += c;
        }
    }
    flush();
}

QByteArray ParameterList::value(QByteArrayView name) const
{
    for (const auto &parameter : m_parameters) {
        if (parameter.first == name)
            return parameter.second;
    }
    return {};
}

bool ParameterList::contains(QByteArrayView name) const
{
    for (const auto &parameter : m_parameters) {
        if (parameter.first == name)
            return true;
    }
    return false;
}

} // namespace orrin::rtsp
