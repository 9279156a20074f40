// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlsortfilterproxymodel.h"

#include "resources/qmlchannelmodel.h"
#include "resources/qmlreceivers_p.h"
#include "resources/qmlservergroupmodel.h"
#include "resources/qmlservermodel.h"
#include "resources/qmlsortfilterproxymodel_p.h"
#include "resources/qmltrackmodel.h"

#include <QAbstractItemModel>
#include <QJSValue>
#include <QMetaMethod>

#include <algorithm>

namespace orrin {

namespace {

// A value from QML may still be a JavaScript one.
QVariant plainValue(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

// A text converts to the list of its characters, so it is told apart first.
bool isText(const QVariant &value)
{
    return value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QByteArray;
}

std::vector<FilterPattern> candidatesOf(const QVariant &value)
{
    std::vector<FilterPattern> candidates;
    if (!isText(value)) {
        const QVariantList list = value.toList();
        candidates.reserve(static_cast<std::size_t>(list.size()));
        for (const QVariant &item : list)
            candidates.emplace_back(item.toString());
    }
    if (candidates.empty())
        candidates.emplace_back(value.toString());
    return candidates;
}

QString textOf(const QAbstractItemModel &source, int row, const QModelIndex &parent, int role)
{
    return source.data(source.index(row, role - Qt::UserRole, parent), role).toString();
}

// Whether a regular expression of that pattern matches just this text.
bool isWord(QStringView pattern)
{
    return std::none_of(pattern.cbegin(), pattern.cend(), [](QChar c) {
        return c.isNull() || c.isSurrogate() || QStringView(u"\\^$.[]|()?*+{}").contains(c);
    });
}

bool shows(const QAbstractItemModel *model, const QAbstractItemModel *other)
{
    while (model && model != other) {
        const auto *proxy = qobject_cast<const QAbstractProxyModel *>(model);
        model = proxy ? proxy->sourceModel() : nullptr;
    }
    return model;
}

} // namespace

FilterPattern::FilterPattern(const QString &pattern)
    : m_kind(isWord(pattern) ? Kind::Word : Kind::Expression)
{
    if (m_kind == Kind::Word) {
        m_word.setPattern(pattern);
        return;
    }
    m_expression.setPattern(pattern);
    // Matching an invalid one would print a warning each time.
    if (m_expression.isValid())
        m_expression.optimize();
    else
        m_kind = Kind::Invalid;
}

bool FilterPattern::matches(const QString &text) const
{
    switch (m_kind) {
    case Kind::Word: return holdsWord(text);
    case Kind::Expression: return m_expression.match(text).hasMatch();
    case Kind::Invalid: break;
    }
    return false;
}

bool FilterPattern::matchesPartially(const QString &text) const
{
    if (m_kind == Kind::Word)
        return holdsWord(text) || endsInBeginningOfWord(text);
    if (m_kind == Kind::Invalid)
        return false;
    const QRegularExpressionMatch match =
        m_expression.match(text, 0, QRegularExpression::PartialPreferFirstMatch);
    return match.hasPartialMatch() || match.hasMatch();
}

bool FilterPattern::holdsWord(const QString &text) const
{
    // An expression matches no text that is broken.
    return m_word.indexIn(text) >= 0 && text.isValidUtf16();
}

bool FilterPattern::endsInBeginningOfWord(const QString &text) const
{
    const QStringView word = m_word.patternView();
    for (qsizetype length = std::min(text.size(), word.size() - 1); length > 0; --length) {
        if (word[length - 1] == text.back() && text.endsWith(word.first(length)))
            return text.isValidUtf16();
    }
    return false;
}

QmlSortFilterProxyModelPrivate::QmlSortFilterProxyModelPrivate(QmlSortFilterProxyModel *q)
    : q_ptr(q)
{
}

void QmlSortFilterProxyModelPrivate::followSource()
{
    m_rolesResolved = false;
    QObject::disconnect(m_sourceReset);
    m_sourceReset = {};
    // The base class is connected after this, so that its filtering after a reset finds the new roles.
    if (const QAbstractItemModel *source = q_ptr->sourceModel()) {
        m_sourceReset = QObject::connect(source, &QAbstractItemModel::modelReset, q_ptr.data(),
                                         [this] { m_rolesResolved = false; });
    }
}

void QmlSortFilterProxyModelPrivate::updateFilter()
{
    const QAbstractItemModel *source = q_ptr->sourceModel();
    if (!source)
        return;
    m_rolesResolved = false;
    const int role = source->roleNames().key(sortRole, -1);
    // A role below Qt::UserRole has no column, and without a column the rows are in the source's order.
    if (role >= 0)
        q_ptr->sort(std::max(role - Qt::UserRole, -1), sortOrder);
    q_ptr->invalidateFilter();
}

void QmlSortFilterProxyModelPrivate::setFilter(Filters &filters, const QByteArray &role, const QVariant &value, bool match)
{
    const QVariant plain = plainValue(value);
    filters.insert(role, Filter{plain, match, candidatesOf(plain), -1});
    updateFilter();
    Q_EMIT q_ptr->filtersChanged();
}

void QmlSortFilterProxyModelPrivate::resolveRoles(const QAbstractItemModel &source)
{
    const QHash<int, QByteArray> names = source.roleNames();
    m_filterRole = names.key(filterRole, -1);
    for (Filters *filters : {&andFilters, &orFilters}) {
        for (auto filter = filters->begin(); filter != filters->end(); ++filter)
            filter->role = names.key(filter.key(), -1);
    }
    m_rolesResolved = true;
}

bool QmlSortFilterProxyModelPrivate::accepts(int row, const QModelIndex &parent)
{
    const QAbstractItemModel *source = q_ptr->sourceModel();
    if (!source)
        return false;
    if (!m_rolesResolved)
        resolveRoles(*source);
    return passesRole(*source, row, parent) && passesAnd(*source, row, parent) && passesOr(*source, row, parent);
}

bool QmlSortFilterProxyModelPrivate::passesRole(const QAbstractItemModel &source, int row, const QModelIndex &parent) const
{
    if ((filterRole.isEmpty() && filterRegExp.isEmpty()) || m_filterRole < 0)
        return true;
    return pattern.matchesPartially(textOf(source, row, parent, m_filterRole));
}

bool QmlSortFilterProxyModelPrivate::passesAnd(const QAbstractItemModel &source, int row, const QModelIndex &parent) const
{
    // A copy, since reading a value may run handlers that change the filters.
    const Filters filters = andFilters;
    return std::all_of(filters.cbegin(), filters.cend(), [&](const Filter &filter) {
        const QString text = textOf(source, row, parent, filter.role);
        return std::all_of(filter.candidates.cbegin(), filter.candidates.cend(),
                           [&](const FilterPattern &candidate) { return candidate.matches(text) == filter.match; });
    });
}

bool QmlSortFilterProxyModelPrivate::passesOr(const QAbstractItemModel &source, int row, const QModelIndex &parent) const
{
    const Filters filters = orFilters;
    if (filters.isEmpty())
        return true;
    return std::any_of(filters.cbegin(), filters.cend(), [&](const Filter &filter) {
        const QString text = textOf(source, row, parent, filter.role);
        return std::any_of(filter.candidates.cbegin(), filter.candidates.cend(),
                           [&](const FilterPattern &candidate) { return candidate.matches(text) == filter.match; });
    });
}

QmlSortFilterProxyModel::QmlSortFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
    , d_ptr(std::make_unique<QmlSortFilterProxyModelPrivate>(this))
{
    connect(this, &QAbstractProxyModel::sourceModelChanged, this, [this] { d_func()->followSource(); });
}

QmlSortFilterProxyModel::~QmlSortFilterProxyModel() = default;

QVariant QmlSortFilterProxyModel::model() const
{
    return QVariant::fromValue(sourceModel());
}

void QmlSortFilterProxyModel::setModel(const QVariant &model)
{
    auto *source = plainValue(model).value<QAbstractItemModel *>();
    if (!source || source == sourceModel() || shows(source, this))
        return;
    // All receivers of the signal are dropped here, while the old source stays connected to it.
    dropReceivers(this, QMetaMethod::fromSignal(&QmlSortFilterProxyModel::countChanged));
    connect(source, &QAbstractItemModel::rowsInserted, this, &QmlSortFilterProxyModel::countChanged);
    connect(source, &QAbstractItemModel::rowsRemoved, this, &QmlSortFilterProxyModel::countChanged);
    setSourceModel(source);
    d_func()->updateFilter();
    Q_EMIT modelChanged();
}

QByteArray QmlSortFilterProxyModel::sortRole() const
{
    return d_func()->sortRole;
}

void QmlSortFilterProxyModel::setSortRole(const QByteArray &role)
{
    if (d_func()->sortRole == role)
        return;
    d_func()->sortRole = role;
    d_func()->updateFilter();
    Q_EMIT sortRoleChanged();
}

Qt::SortOrder QmlSortFilterProxyModel::sortOrder() const
{
    return d_func()->sortOrder;
}

void QmlSortFilterProxyModel::setSortOrder(Qt::SortOrder order)
{
    if (d_func()->sortOrder == order)
        return;
    d_func()->sortOrder = order;
    d_func()->updateFilter();
    Q_EMIT sortOrderChanged();
}

QByteArray QmlSortFilterProxyModel::filterRole() const
{
    return d_func()->filterRole;
}

void QmlSortFilterProxyModel::setFilterRole(const QByteArray &role)
{
    if (d_func()->filterRole == role)
        return;
    d_func()->filterRole = role;
    d_func()->updateFilter();
    Q_EMIT filterRoleChanged();
}

QString QmlSortFilterProxyModel::filterRegExp() const
{
    return d_func()->filterRegExp;
}

void QmlSortFilterProxyModel::setFilterRexExp(const QString &pattern)
{
    if (d_func()->filterRegExp == pattern)
        return;
    d_func()->filterRegExp = pattern;
    d_func()->pattern = FilterPattern(pattern);
    d_func()->updateFilter();
    Q_EMIT filterRegExpChanged();
}

int QmlSortFilterProxyModel::count() const
{
    return rowCount();
}

QVariantList QmlSortFilterProxyModel::filters() const
{
    using Filters = QmlSortFilterProxyModelPrivate::Filters;
    QVariantList list;
    for (const Filters *filters : {&d_func()->orFilters, &d_func()->andFilters}) {
        for (auto filter = filters->cbegin(); filter != filters->cend(); ++filter) {
            list.append(QVariantMap{{QStringLiteral("key"), QString::fromUtf8(filter.key())},
                                    {QStringLiteral("value"), filter->value}});
        }
    }
    return list;
}

QVariant QmlSortFilterProxyModel::get(int index) const
{
    const QAbstractItemModel *source = sourceModel();
    const int row = mapToSource(this->index(index, 0)).row();
    if (const auto *proxy = qobject_cast<const QmlSortFilterProxyModel *>(source))
        return proxy->get(row);
    if (const auto *groups = qobject_cast<const QmlServerGroupModel *>(source))
        return groups->get(row);
    if (const auto *servers = qobject_cast<const QmlServerModel *>(source))
        return servers->get(row);
    if (const auto *channels = qobject_cast<const QmlChannelModel *>(source))
        return channels->get(row);
    if (const auto *tracks = qobject_cast<const QmlTrackModel *>(source))
        return tracks->get(row);
    return {};
}

void QmlSortFilterProxyModel::addOrFilter(QByteArray filter, QVariant value, bool match)
{
    d_func()->setFilter(d_func()->orFilters, filter, value, match);
}

void QmlSortFilterProxyModel::addAndFilter(QByteArray filter, QVariant value, bool match)
{
    d_func()->setFilter(d_func()->andFilters, filter, value, match);
}

void QmlSortFilterProxyModel::clearFilters()
{
    d_func()->andFilters.clear();
    d_func()->orFilters.clear();
    d_func()->updateFilter();
    Q_EMIT filtersChanged();
}

bool QmlSortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    return d_func()->accepts(sourceRow, sourceParent);
}

} // namespace orrin
