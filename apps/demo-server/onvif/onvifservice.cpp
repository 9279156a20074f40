// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/onvifservice.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

OnvifService::OnvifService(OnvifContext context, QLatin1StringView ns, QString path, int major, int minor)
    : m_context(std::move(context)), m_ns(ns), m_path(std::move(path)), m_major(major), m_minor(minor)
{
}

OnvifService::~OnvifService() = default;

const OnvifService::Operation *OnvifService::operation(const QString &name) const
{
    const auto found = m_operations.constFind(name);
    return found == m_operations.cend() ? nullptr : &*found;
}

QString OnvifService::address(const HttpRequest &request) const
{
    return u"https://%1%2"_s.arg(QString::fromLatin1(request.host), m_path);
}

void OnvifService::add(const QString &name, Access access, Handler handler)
{
    m_operations.insert(name, {access, std::move(handler), {}});
}

void OnvifService::addLater(const QString &name, Access access, LaterHandler handler)
{
    m_operations.insert(name, {access, {}, std::move(handler)});
}

} // namespace orrin::demo
