#include "VELTRuntime/platform/appkit/controls/search_widget.h"

#include "VELTRuntime/platform/appkit/controls/field_parts.h"
#include "VELTRuntime/platform/appkit/controls/search_field.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QMenu>
#include <QStyle>

namespace velt {

SearchWidget::SearchWidget()
    : magnifier_(new FieldButton(FieldButton::Sign::Magnifier, QObject::tr("Earlier searches"), *this)),
      cross_(new FieldButton(FieldButton::Sign::Cross, QObject::tr("Clear"), *this)) {
    constexpr int kPause = 400;  // milliseconds: longer than between two keys of one word
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, [this] {
        if (NSSearchField* shown = searchField()) shown->pauseOver();
    });
    connect(cross_, &QAbstractButton::clicked, this, [this] {
        if (NSSearchField* shown = searchField()) shown->clearSearch();
    });
    connect(magnifier_, &QAbstractButton::pressed, this, [this] { openRecents(); });
}

NSSearchField* SearchWidget::searchField() const { return static_cast<NSSearchField*>(field()); }

void SearchWidget::startPause() { pause_.start(); }

bool SearchWidget::openRecents() {
    NSSearchField* shown = searchField();
    const id searches = shown ? shown->recentSearches() : nil;
    const NSArray* recents = arrayOf(searches);
    if (!recents || recents->count() == 0 || !isEnabled()) return false;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const id& text : recents->items()) {
        // What a person sought is shown as it is: "&" marks no letter.
        QAction* action = menu->addAction(qtText(text).replace(QLatin1Char('&'), QStringLiteral("&&")));
        connect(action, &QAction::triggered, this, [this, text] {
            if (NSSearchField* chosen = searchField()) chosen->seekAgain(text);
        });
    }
    menu->addSeparator();
    connect(menu->addAction(QObject::tr("Clear Earlier Searches")), &QAction::triggered, this, [this] {
        if (NSSearchField* cleared = searchField()) cleared->setRecentSearches(velt::make<NSArray>());
    });
    menu->popup(mapToGlobal(layoutDirection() == Qt::RightToLeft ? rect().bottomRight() : rect().bottomLeft()));
    magnifier_->setDown(false);
    return true;
}

void SearchWidget::syncParts(NSTextField& field) {
    const id searches = static_cast<NSSearchField&>(field).recentSearches();
    const NSArray* recents = arrayOf(searches);
    magnifier_->setSign(recents && recents->count() > 0 ? FieldButton::Sign::Recents : FieldButton::Sign::Magnifier);
    cross_->setVisible(field.isEditable() && asString(field.stringValue()).length() > 0);
    placeParts();
}

void SearchWidget::placeParts() {
    const QRect inner = frameContents();
    const QRect start(inner.left(), inner.top(), kPart, inner.height());
    const QRect end(inner.right() - kPart + 1, inner.top(), kPart, inner.height());
    magnifier_->setGeometry(QStyle::visualRect(layoutDirection(), inner, start));
    cross_->setGeometry(QStyle::visualRect(layoutDirection(), inner, end));
}

void SearchWidget::resizeEvent(QResizeEvent* event) {
    FieldWidget::resizeEvent(event);
    placeParts();
}

}  // namespace velt
