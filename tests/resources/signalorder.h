// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QSignalSpy>
#include <QStringList>

#include <memory>
#include <vector>

namespace orrin {

/*! The names of all signals that an object's own class declares, in the order in which they are emitted. */
class SignalOrder : public QObject
{
    Q_OBJECT
public:
    explicit SignalOrder(QObject *object)
    {
        const QMetaObject *meta = object->metaObject();
        const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("record()"));
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal)
                connect(object, meta->method(i), this, slot);
        }
    }

    QStringList take() { return std::exchange(m_names, {}); }

    /*! The signals that \a object's class declares, in order. */
    static QStringList declaredBy(const QMetaObject &meta)
    {
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                names.append(QString::fromLatin1(meta.method(i).name()));
        }
        return names;
    }

private Q_SLOTS:
    void record() { m_names.append(QString::fromLatin1(sender()->metaObject()->method(senderSignalIndex()).name())); }

private:
    QStringList m_names;
};

} // namespace orrin
