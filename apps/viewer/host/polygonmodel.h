// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QPointF>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/*! The corners of one closed polygon in scene coordinates, for the module's O_Polygon. Main thread.

    Each corner has a row with the roles `x` and `y`; one more row closes the outline at the first corner again and changes with
    it. Without corners there are no rows. Rows and corners go by one index; that of the closing row means the first corner. */
class PolygonModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double startX READ startX NOTIFY startChanged FINAL)
    Q_PROPERTY(double startY READ startY NOTIFY startChanged FINAL)
    /*! Whether the position that was last reported lies inside. */
    Q_PROPERTY(bool shapeContainsCursor READ shapeContainsCursor NOTIFY shapeContainsCursorChanged FINAL)
    /*! The corners. Setting them resets the rows; those beyond MaximumCorners and those that are no numbers are left out. */
    Q_PROPERTY(QList<QPointF> corners READ corners WRITE setCorners NOTIFY cornersChanged FINAL)

public:
    enum Role : int { XRole = Qt::UserRole, YRole };

    /*! Below this a shape has no inside; the last ones cannot be removed. */
    static constexpr qsizetype FewestCorners = 3;
    static constexpr qsizetype MaximumCorners = 20000;

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    double startX() const { return m_corners.isEmpty() ? 0 : m_corners.constFirst().x(); }
    double startY() const { return m_corners.isEmpty() ? 0 : m_corners.constFirst().y(); }
    bool shapeContainsCursor() const { return m_containsCursor; }
    QList<QPointF> corners() const { return m_corners; }
    void setCorners(const QList<QPointF> &corners);

    /*! Whether a ray from \a position to the right crosses the outline an odd number of times. */
    Q_INVOKABLE bool contains(QPointF position) const;
    Q_INVOKABLE void updateCursorPosition(QPointF position);
    /*! Adds a corner in the edge that lies nearest to \a position; without edges, at the end. */
    Q_INVOKABLE void addPoint(QPointF position);
    /*! Removes a corner while more than FewestCorners are there. */
    Q_INVOKABLE void removePointAtIndex(int index);
    Q_INVOKABLE void moveVertex(int index, double x_diff, double y_diff);
    Q_INVOKABLE void moveAllVertices(double x_diff, double y_diff);
    /*! Logs the corners as fractions of the size of \a parentScene, at the debug level. */
    Q_INVOKABLE void printCorvanePoints(QQuickItem *parentScene) const;

Q_SIGNALS:
    void startChanged();
    void shapeContainsCursorChanged();
    /*! A corner was added, removed or moved, or all were set. */
    void cornersChanged();

private:
    qsizetype edgeNearest(QPointF position) const;
    void setContainsCursor(bool contains);
    void tellMoved(int first, int last);

    QList<QPointF> m_corners;
    bool m_containsCursor = false;
};
