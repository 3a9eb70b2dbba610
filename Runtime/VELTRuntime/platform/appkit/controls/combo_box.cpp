#include "VELTRuntime/platform/appkit/controls/combo_box.h"

#include "VELTRuntime/platform/appkit/controls/combo_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/values/class_casts.h"

#include <QListWidget>
#include <limits>

using velt::Ref;

namespace {

constexpr long kNotFound = std::numeric_limits<long>::max();  // the platform's

id shownText(const id& value) {
    if (value.isNil()) return velt::string(std::u16string_view());
    return velt::isString(value) ? value : velt::description(value);
}

}  // namespace

// The cell.

double NSComboBoxCell::roomBeside() const {
    constexpr double kArrow = 22;
    return kArrow;
}

void NSComboBoxCell::setButtonBordered(bool flag) {
    buttonBordered_ = flag;
    changed();
}
void NSComboBoxCell::setUsesDataSource(bool flag) {
    usesDataSource_ = flag;
    selected_ = -1;
}
void NSComboBoxCell::setDataSource(const id& source) { dataSource_ = source; }

void NSComboBoxCell::describe(velt::ClassBuilder<NSComboBoxCell>& c) {
    c.property("completes", &NSComboBoxCell::completes, &NSComboBoxCell::setCompletes)
        .property("numberOfVisibleItems", &NSComboBoxCell::numberOfVisibleItems,
                  &NSComboBoxCell::setNumberOfVisibleItems)
        .property("hasVerticalScroller", &NSComboBoxCell::hasVerticalScroller, &NSComboBoxCell::setHasVerticalScroller)
        .flag("buttonBordered", &NSComboBoxCell::isButtonBordered, &NSComboBoxCell::setButtonBordered)
        .property("itemHeight", &NSComboBoxCell::itemHeight, &NSComboBoxCell::setItemHeight)
        .property("intercellSpacing", &NSComboBoxCell::intercellSpacing, &NSComboBoxCell::setIntercellSpacing)
        .property("usesDataSource", &NSComboBoxCell::usesDataSource, &NSComboBoxCell::setUsesDataSource)
        .property("dataSource", &NSComboBoxCell::dataSource, &NSComboBoxCell::setDataSource)
        .owns(&NSComboBoxCell::items_)
        .owns(&NSComboBoxCell::dataSource_);
}

// The list.

Ref<NSCell> NSComboBox::makeCell() const {
    Ref<NSComboBoxCell> cell = velt::make<NSComboBoxCell>();
    prepareCell(*cell);
    cell->setUsesSingleLineMode(true);
    return cell;
}

std::unique_ptr<velt::FieldWidget> NSComboBox::makeFieldWidget() { return std::make_unique<velt::ComboWidget>(); }

NSMutableArray& NSComboBox::ownList(const char* operation) {
    if (comboCell().usesDataSource()) {
        velt::raise(velt::kInternalInconsistencyException,
                    "'" + isa().name() + "' " + operation + ": the list is the data source's");
    }
    return comboCell().items();
}

void NSComboBox::addItemWithObjectValue(const id& value) { ownList("addItemWithObjectValue:").append(value); }

void NSComboBox::addItemsWithObjectValues(const id& values) {
    NSMutableArray& list = ownList("addItemsWithObjectValues:");
    const id given = VELT_CARRAY(values);
    if (const NSArray* array = velt::arrayOf(given)) list.appendAll(*array);
}

void NSComboBox::insertItemWithObjectValue(const id& value, long index) {
    ownList("insertItemWithObjectValue:atIndex:").insert(value, index);
    long& selected = comboCell().selected_;
    if (selected >= index) ++selected;
}

void NSComboBox::removeItemAtIndex(long index) {
    ownList("removeItemAtIndex:").remove(index);
    long& selected = comboCell().selected_;
    if (selected == index) {
        selected = -1;
    } else if (selected > index) {
        --selected;
    }
}

void NSComboBox::removeItemWithObjectValue(const id& value) {
    const long index = ownList("removeItemWithObjectValue:").indexOf(value);
    if (index >= 0) removeItemAtIndex(index);
}

void NSComboBox::removeAllItems() {
    ownList("removeAllItems").removeAll();
    comboCell().selected_ = -1;
}

long NSComboBox::numberOfItems() const {
    const NSComboBoxCell& cell = comboCell();
    if (!cell.usesDataSource()) return static_cast<long>(cell.items().count());
    const velt::Selector asks = VELT_SELECTOR("numberOfItemsInComboBox:");
    if (!velt::respondsTo(cell.dataSource(), asks)) return 0;
    return std::max(0L, static_cast<long>(VELT_CINTEGER(velt::send(cell.dataSource(), asks, velt::idOf(this)))));
}

id NSComboBox::itemObjectValueAtIndex(long index) const {
    const NSComboBoxCell& cell = comboCell();
    if (!cell.usesDataSource()) return cell.items().at(index);
    const long count = numberOfItems();
    if (index < 0 || index >= count) {
        velt::raiseRange("'" + isa().name() + "' itemObjectValueAtIndex:", index, static_cast<std::size_t>(count));
    }
    return velt::send(cell.dataSource(), VELT_SELECTOR("comboBox:objectValueForItemAtIndex:"), velt::idOf(this),
                      VELT_ID(index));
}

id NSComboBox::objectValues() const {
    Ref<NSMutableArray> values = velt::make<NSMutableArray>();
    const long count = numberOfItems();
    for (long i = 0; i < count; ++i) values->append(itemObjectValueAtIndex(i));
    return values;
}

long NSComboBox::indexOfItemWithObjectValue(const id& value) const {
    const long count = numberOfItems();
    for (long i = 0; i < count; ++i) {
        if (velt::isEqual(itemObjectValueAtIndex(i), value)) return i;
    }
    return kNotFound;
}

id NSComboBox::textOfItem(long index) const { return shownText(itemObjectValueAtIndex(index)); }

void NSComboBox::reloadData() {
    if (comboCell().selected_ >= numberOfItems()) comboCell().selected_ = -1;
    if (auto* shown = static_cast<velt::ComboWidget*>(fieldWidget())) shown->closeList();
}

// The selection.

long NSComboBox::indexOfSelectedItem() const {
    const long selected = comboCell().selected_;
    return selected < numberOfItems() ? selected : -1;
}

void NSComboBox::select(long index) {
    if (std::exchange(comboCell().selected_, index) == index) return;
    tell("comboBoxSelectionDidChange:", "NSComboBoxSelectionDidChangeNotification");
}

void NSComboBox::selectItemAtIndex(long index) {
    const id value = itemObjectValueAtIndex(index);
    setObjectValue(value);
    select(index);
}

void NSComboBox::deselectItemAtIndex(long index) {
    if (indexOfSelectedItem() == index && index >= 0) select(-1);
}

void NSComboBox::selectItemWithObjectValue(const id& value) {
    const long index = indexOfItemWithObjectValue(value);
    if (index == kNotFound) {
        select(-1);
    } else {
        selectItemAtIndex(index);
    }
}

id NSComboBox::objectValueOfSelectedItem() const {
    const long index = indexOfSelectedItem();
    return index < 0 ? id() : itemObjectValueAtIndex(index);
}

void NSComboBox::scrollItemAtIndexToVisible(long index) {
    auto* shown = static_cast<velt::ComboWidget*>(fieldWidget());
    QListWidget* list = shown ? shown->list() : nullptr;
    if (list) list->scrollToItem(list->item(static_cast<int>(index)));
}

// What a person does.

void NSComboBox::willPopUp() noexcept {
    const Ref<NSComboBox> kept(this);
    velt::runReported([this] { tell("comboBoxWillPopUp:", "NSComboBoxWillPopUpNotification"); });
}

void NSComboBox::willDismiss() noexcept {
    const Ref<NSComboBox> kept(this);
    velt::runReported([this] { tell("comboBoxWillDismiss:", "NSComboBoxWillDismissNotification"); });
}

void NSComboBox::chose(long index) noexcept {
    const Ref<NSComboBox> kept(this);
    velt::runReported([&] {
        if (index >= numberOfItems()) return;
        abortEditing();
        selectItemAtIndex(index);
        if (velt::FieldEditor* shown = editor()) shown->selectAll();
        sendOwnAction();
    });
}

bool NSComboBox::perform(std::string_view selector) {
    auto* shown = static_cast<velt::ComboWidget*>(fieldWidget());
    if (selector == "moveDown:" && shown) {
        shown->openList();
        return true;
    }
    return NSTextField::perform(selector);
}

id NSComboBox::completedString(const id& text) const {
    if (!velt::isString(text) || velt::asString(text).length() == 0) return nil;
    const NSComboBoxCell& cell = comboCell();
    const velt::Selector asks = VELT_SELECTOR("comboBox:completedString:");
    if (cell.usesDataSource() && velt::respondsTo(cell.dataSource(), asks)) {
        return velt::send(cell.dataSource(), asks, velt::idOf(this), text);
    }
    const QString begin = velt::qtText(text);
    const long count = numberOfItems();
    for (long i = 0; i < count; ++i) {
        id whole = textOfItem(i);
        if (velt::qtText(whole).startsWith(begin, Qt::CaseInsensitive)) return whole;
    }
    return nil;
}

void NSComboBox::complete() {
    velt::FieldEditor* shown = editor();
    if (!shown || !comboCell().completes()) return;
    const QString typed = shown->text();
    QString before = velt::qtText(stringValue());
    // Of a completion only what was typed counts as having stood there.
    if (before == velt::qtText(std::exchange(completed_, {}))) before.truncate(completedFrom_);
    // Nothing comes back that was just erased, and nothing is put into the middle of a text.
    if (before.startsWith(typed) || shown->selectionStart() != typed.size()) return;
    const QString whole = velt::qtText(completedString(velt::textValue(typed)));
    if (whole.size() <= typed.size()) return;
    completed_ = whole.toStdU16String();
    completedFrom_ = static_cast<long>(typed.size());
    shown->setText(whole);
    shown->select(static_cast<int>(typed.size()), static_cast<int>(whole.size() - typed.size()));
}

void NSComboBox::takeTyped() {
    complete();
    NSTextField::takeTyped();
    const id text = stringValue();
    const long count = numberOfItems();
    long found = -1;
    for (long i = 0; i < count && found < 0; ++i) {
        if (velt::isEqual(textOfItem(i), text)) found = i;
    }
    comboCell().selected_ = found;
}

void NSComboBox::describe(velt::ClassBuilder<NSComboBox>& c) {
    // What its cell answers too.
#define VELT_CELL_PROPERTY(Type, getter, Setter)                                                                       \
    c.method(#getter, [](const id& self, const id*) {                                                                  \
        return velt::boxResult(velt::as<NSComboBox>(self)->comboCell().getter());                                      \
    });                                                                                                                \
    c.method("set" #Setter ":", [](const id& self, const id* value) {                                                  \
        velt::as<NSComboBox>(self)->comboCell().set##Setter(velt::unboxArgument<Type>(value[0]));                      \
        return id();                                                                                                   \
    });
    VELT_CELL_PROPERTY(bool, completes, Completes)
    VELT_CELL_PROPERTY(long, numberOfVisibleItems, NumberOfVisibleItems)
    VELT_CELL_PROPERTY(bool, hasVerticalScroller, HasVerticalScroller)
    VELT_CELL_PROPERTY(bool, isButtonBordered, ButtonBordered)
    VELT_CELL_PROPERTY(double, itemHeight, ItemHeight)
    VELT_CELL_PROPERTY(NSSize, intercellSpacing, IntercellSpacing)
    VELT_CELL_PROPERTY(bool, usesDataSource, UsesDataSource)
    VELT_CELL_PROPERTY(id, dataSource, DataSource)
#undef VELT_CELL_PROPERTY
    c.method("addItemWithObjectValue:", &NSComboBox::addItemWithObjectValue)
        .method("addItemsWithObjectValues:", &NSComboBox::addItemsWithObjectValues)
        .method("insertItemWithObjectValue:atIndex:", &NSComboBox::insertItemWithObjectValue)
        .method("removeItemAtIndex:", &NSComboBox::removeItemAtIndex)
        .method("removeItemWithObjectValue:", &NSComboBox::removeItemWithObjectValue)
        .method("removeAllItems", &NSComboBox::removeAllItems)
        .method("itemObjectValueAtIndex:", &NSComboBox::itemObjectValueAtIndex)
        .property("objectValues", &NSComboBox::objectValues)
        .property("numberOfItems", &NSComboBox::numberOfItems)
        .method("indexOfItemWithObjectValue:", &NSComboBox::indexOfItemWithObjectValue)
        .method("reloadData", &NSComboBox::reloadData)
        .method("noteNumberOfItemsChanged", &NSComboBox::noteNumberOfItemsChanged)
        .property("indexOfSelectedItem", &NSComboBox::indexOfSelectedItem)
        .method("selectItemAtIndex:", &NSComboBox::selectItemAtIndex)
        .method("deselectItemAtIndex:", &NSComboBox::deselectItemAtIndex)
        .method("selectItemWithObjectValue:", &NSComboBox::selectItemWithObjectValue)
        .property("objectValueOfSelectedItem", &NSComboBox::objectValueOfSelectedItem)
        .method("scrollItemAtIndexToVisible:", &NSComboBox::scrollItemAtIndexToVisible)
        .method("completedString:", &NSComboBox::completedString);
}
