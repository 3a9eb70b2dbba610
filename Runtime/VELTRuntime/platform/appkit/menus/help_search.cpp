#include "VELTRuntime/platform/appkit/menus/help_search.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QLineEdit>
#include <QMenu>
#include <QWidgetAction>

namespace velt {

namespace {

struct Found {
    QString path;
    Ref<NSMenuItem> item;
};

/// Items that do something and whose title holds the text, wherever they are in a menu.
void find(NSMenu& menu, const QString& text, const QString& path, std::vector<Found>& found) {
    constexpr std::size_t kMost = 20;  // more than anybody reads
    menu.update();
    const std::vector<Ref<NSMenuItem>> items = menu.items();  // who is asked may change the menus
    for (const Ref<NSMenuItem>& item : items) {
        if (found.size() >= kMost) return;
        if (item->isHidden() || item->isSeparatorItem()) continue;
        const QString title = qtText(item->title());
        const QString whole = path.isEmpty() ? title : path + QStringLiteral(" ▸ ") + title;
        if (const Ref<NSMenu> submenu(item->submenuPointer()); submenu) {
            find(*submenu, text, whole, found);
        } else if (item->isEnabled() && title.contains(text, Qt::CaseInsensitive)) {
            found.push_back({whole, item});
        }
    }
}

class HelpSearch final : public QWidgetAction {
public:
    explicit HelpSearch(QMenu& menu) : QWidgetAction(&menu), menu_(menu), field_(new QLineEdit) {
        field_->setPlaceholderText(QStringLiteral("Search"));
        field_->setAccessibleName(QStringLiteral("Search the menus"));
        field_->setClearButtonEnabled(true);
        setDefaultWidget(field_);
        connect(field_, &QLineEdit::textChanged, this,
                [this](const QString& text) { runReported([&] { search(text.trimmed()); }); });
    }

    void atTop() {
        clear();
        field_->clear();
        const QList<QAction*> actions = menu_.actions();
        if (actions.isEmpty() || actions.first() != this) {
            menu_.removeAction(this);
            menu_.insertAction(menu_.actions().value(0), this);
        }
        menu_.setActiveAction(this);
        field_->setFocus(Qt::PopupFocusReason);
    }

private:
    void clear() {
        qDeleteAll(results_);
        results_.clear();
    }

    void search(const QString& text) {
        clear();
        const id main = NSApplication::sharedApplication().mainMenu();
        if (text.isEmpty() || !is<NSMenu>(main)) return;
        std::vector<Found> found;
        find(*as<NSMenu>(main), text, {}, found);
        const QList<QAction*> actions = menu_.actions();
        QAction* before = actions.value(actions.indexOf(this) + 1);
        for (const Found& each : found) {
            QString title = each.path;
            auto* result = new QAction(title.replace(u'&', QStringLiteral("&&")), &menu_);
            connect(result, &QAction::triggered, result, [item = each.item] { runReported([&] { item->perform(); }); });
            menu_.insertAction(before, result);
            results_.append(result);
        }
        if (!results_.isEmpty()) results_.append(menu_.insertSeparator(before));
        menu_.adjustSize();
    }

    QMenu& menu_;
    QLineEdit* field_;
    QList<QAction*> results_;
};

}  // namespace

bool isHelpMenu(const NSMenu& menu) {
    const NSApplication& application = NSApplication::sharedApplication();
    const id within = menu.parentItem() ? menu.parentItem()->menu() : id();
    if (within.isNil() || within != application.mainMenu()) return false;
    const id named = application.helpMenu();
    const id self(static_cast<NSObject*>(const_cast<NSMenu*>(&menu)));
    return named.isNil() ? qtText(menu.title()) == QLatin1String("Help") : named == self;
}

void showHelpSearch(QMenu& widget, const NSMenu& menu) {
    HelpSearch* search = nullptr;
    for (QAction* action : widget.actions()) {
        if (auto* found = dynamic_cast<HelpSearch*>(action)) search = found;
    }
    if (!isHelpMenu(menu)) {
        delete search;
        return;
    }
    if (!search) search = new HelpSearch(widget);
    search->atTop();
}

}  // namespace velt
