// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDirIterator>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

namespace orrin::test {

/*! One fenced example of a page. */
struct Snippet
{
    QString page;
    int line = 0; //!< of its first line, from 1
    QString language;
    QString text;

    QString place() const { return QStringLiteral("%1:%2").arg(page).arg(line); }
};

/*! A page of the documentation, read as text. */
class Page
{
public:
    explicit Page(const QString &path) : m_path(path)
    {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            m_lines = QString::fromUtf8(file.readAll()).split(u'\n');
    }

    /*! All pages below \a folder. */
    static QList<Page> all(const QString &folder)
    {
        QList<Page> pages;
        QDirIterator files(folder, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            pages.append(Page(files.next()));
        return pages;
    }

    const QString &path() const { return m_path; }
    QStringList lines() const { return m_lines; }

    QList<Snippet> snippets() const
    {
        QList<Snippet> list;
        bool inside = false;
        for (int i = 0; i < m_lines.size(); ++i) {
            const QString &line = m_lines.at(i);
            if (line.startsWith(QStringLiteral("```"))) {
                inside = !inside;
                if (inside)
                    list.append({m_path, i + 2, line.mid(3).trimmed(), {}});
            } else if (inside) {
                list.last().text += line + u'\n';
            }
        }
        return list;
    }

private:
    QString m_path;
    QStringList m_lines;
};

} // namespace orrin::test
