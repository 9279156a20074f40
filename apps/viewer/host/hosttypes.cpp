// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosttypes.h"

#include "sortedenabledcameramodel.h"

#include <QUrl>
#include <QtQml>

void registerHostTypes()
{
    qmlRegisterType<SortedEnabledCameraModel>("orrinsdkqml", 254, 0, "SortedEnabledCameraModel");
    qmlRegisterType(QUrl(QStringLiteral("qrc:/qt/qml/OrrinViewer/Host/OGridLayout.qml")), "orrinsdkqml", 254, 0,
                    "OGridLayout");
}
