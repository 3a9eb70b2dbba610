#include "VELTRuntime/ui/menus.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/string.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/menus.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

id newMenu(const char* constructor, const id& title) {
    requireMainThread(constructor);
    Ref<NSMenu> menu = make<NSMenu>(title);
    menu->setAutoenablesItems(false);
    return menu;
}

id newItem(const id& owner, const char* action, const id& title) {
    requireMainThread("VELT_NSMENUITEM_INIT");
    Ref<NSMenuItem> item = make<NSMenuItem>(title);
    if (methodNamed(owner, action)) item->setActionName(ui::stringOfLiteral(action));
    item->setTarget(owner);
    return item;
}

/// An item as it is, anything else as the title of a new one.
id itemFor(const id& value) { return is<NSMenuItem>(value) ? value : id(make<NSMenuItem>(VELT_CSTRING(value))); }

id itemWithSubmenu(const id& value) {
    const id submenu = VELT_CNSMENU(value);
    const id title = send(submenu, VELT_SELECTOR("title"));
    Ref<NSMenuItem> item = make<NSMenuItem>(title);
    item->setSubmenu(to<NSMenu>(submenu));
    return item;
}

id insert(const char* function, const id& menu, const id& item, long index) {
    requireMainThread(function);
    send(menu, VELT_SELECTOR("insertItem:atIndex:"), item, VELT_ID(index));
    return nil;
}

id append(const char* function, const id& menu, const id& item) {
    requireMainThread(function);
    send(menu, VELT_SELECTOR("addItem:"), item);
    return nil;
}

}  // namespace

id VELT_NSMENU_INIT(const id&, const char* title) { return newMenu("VELT_NSMENU_INIT", ui::stringOfLiteral(title)); }
id VELT_NSMENU_INIT(const id&, const char*, const id& title) {
    return newMenu("VELT_NSMENU_INIT", VELT_CSTRING(title));
}

id VELT_NSMENUITEM_INIT(const id& owner, const char* action) {
    return newItem(owner, action, ui::stringOfLiteral(action));
}
id VELT_NSMENUITEM_INIT(const id& owner, const char* action, const id& title) {
    return newItem(owner, action, VELT_CSTRING(title));
}

id VELT_NSMENU_APPEND(const id& menu, const id& value) {
    return is<NSMenu>(value) ? VELT_NSMENU_APPENDMENU(menu, value) : append("VELT_NSMENU_APPEND", menu, itemFor(value));
}
id VELT_NSMENU_APPENDMENU(const id& menu, const id& submenu) {
    return append("VELT_NSMENU_APPENDMENU", menu, itemWithSubmenu(submenu));
}
id VELT_NSMENU_PREPENDMENU(const id& menu, const id& submenu) {
    return insert("VELT_NSMENU_PREPENDMENU", menu, itemWithSubmenu(submenu), 0);
}
id VELT_NSMENU_INSERTMENU(const id& menu, const id& submenu, const id& index) {
    return insert("VELT_NSMENU_INSERTMENU", menu, itemWithSubmenu(submenu), VELT_CBYTE(index));
}
id VELT_NSMENU_PREPENDMENUITEM(const id& menu, const id& value) {
    return insert("VELT_NSMENU_PREPENDMENUITEM", menu, itemFor(value), 0);
}
id VELT_NSMENU_INSERTMENUITEM(const id& menu, const id& value, const id& index) {
    return insert("VELT_NSMENU_INSERTMENUITEM", menu, itemFor(value), VELT_CBYTE(index));
}
id VELT_NSMENU_APPENDSEPARATOR(const id& menu) {
    return append("VELT_NSMENU_APPENDSEPARATOR", menu, NSMenuItem::separatorItem());
}
id VELT_NSMENU_PREPENDSEPARATOR(const id& menu) {
    return insert("VELT_NSMENU_PREPENDSEPARATOR", menu, NSMenuItem::separatorItem(), 0);
}
id VELT_NSMENU_INSERTSEPARATOR(const id& menu, const id& index) {
    return insert("VELT_NSMENU_INSERTSEPARATOR", menu, NSMenuItem::separatorItem(), VELT_CBYTE(index));
}

id VELT_NSMENU_REMOVEALL(const id& menu) { return ui::command(menu, VELT_WRAPPER(NSMENU_REMOVEALL, "removeAllItems")); }

id VELT_NSMENUITEM_ACTIONNAME(const id&) { return string(std::u16string_view()); }  // programs rely on it

id VELT_NSMENUITEM_ACTIONNAME(const id& item, const id& name) {
    return ui::bindAction("VELT_NSMENUITEM_ACTIONNAME", item, name);
}
