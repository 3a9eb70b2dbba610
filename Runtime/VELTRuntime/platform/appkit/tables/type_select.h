// Rows found by typing how they begin, in steps between events: the data source of a million rows may have to be asked
// for each of them before it is known that none begins so.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <QString>

class NSTableView;
class QAbstractItemView;

namespace velt {

class TypeSelect final : public QObject {
public:
    /// How many rows are asked for at most before events are handled again, and how long that may take.
    static constexpr int kMostRows = 1000, kMostMilliseconds = 8;

    explicit TypeSelect(QAbstractItemView& view) : view_(view) {}
    /// A person typed that. Selects the next row that begins with all that was typed without a pause, around the end,
    /// now or when it has been found.
    void typed(const QString& text);
    /// Ends a search that is under way.
    void stop();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void begin(NSTableView& table, bool atNext);
    void look();
    bool step(NSTableView& table);
    QModelIndex behind(const QModelIndex& index) const;
    void choose(const QModelIndex& index);

    QAbstractItemView& view_;
    QString typed_, sought_;
    QElapsedTimer sinceTyped_;
    QBasicTimer idle_;
    // The row that is looked at next, the one that the search began with, and what was current then.
    QPersistentModelIndex next_, first_, current_;
    bool foundNothing_ = false;
};

}  // namespace velt
