// One column of a browser: a list of cells that the delegate fills when they are seen, under a title.
#pragma once

#include "VELTRuntime/platform/appkit/tables/browser.h"

#include <QListView>
#include <QWidget>
#include <unordered_map>

class QLabel;

namespace velt {

/// The rows of one column.
class BrowserRows final : public QAbstractListModel {
public:
    BrowserRows(NSBrowser& browser, long column) : browser_(&browser), column_(column) {}
    void forget() { browser_ = nullptr; }
    void setRows(int rows);
    /// The cell of a row, filled by the delegate at the first need; nil when the browser has gone.
    id cell(int row) const;
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    QVariant data(const QModelIndex& index, int role) const override;
    void visitOwned(OwnedVisitor& visitor);
    void clear() { cells_.clear(); }

private:
    NSBrowser* browser_;
    long column_;
    int rows_ = 0;
    mutable std::unordered_map<int, id> cells_;  // those that were seen
};

class BrowserColumn final : public QWidget {
public:
    BrowserColumn(NSBrowser& browser, long place, QWidget* parent);
    BrowserRows& rows() { return *rows_; }
    QListView& list() { return *list_; }
    long place() const { return place_; }
    int selectedRow() const;
    void showTitle(bool shown, const QString& title);

private:
    long place_;
    QLabel* title_;
    QListView* list_;
    BrowserRows* rows_;
};

/// The browser around a widget; null when it has gone.
NSBrowser* browserAround(const QWidget* widget);

}  // namespace velt
