// Images by name: the program's own resources first, then the icons of the desktop.
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/foundation/bundle.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QStyle>
#include <algorithm>
#include <array>

namespace {

/// A name that programs use, the name that icon themes have for it, and what the style draws where there is no theme.
struct KnownIcon {
    std::string_view name;
    const char* themed;
    QStyle::StandardPixmap drawn;
};

constexpr QStyle::StandardPixmap kNotDrawn = QStyle::SP_CustomBase;

constexpr std::array kIcons{
    KnownIcon{"NSCaution", "dialog-warning", QStyle::SP_MessageBoxWarning},
    KnownIcon{"NSInfo", "dialog-information", QStyle::SP_MessageBoxInformation},
    KnownIcon{"NSApplicationIcon", "application-x-executable", QStyle::SP_DesktopIcon},
    KnownIcon{"NSFolder", "folder", QStyle::SP_DirIcon},
    KnownIcon{"NSFolderSmart", "folder-saved-search", QStyle::SP_DirIcon},
    KnownIcon{"NSHomeTemplate", "user-home", QStyle::SP_DirHomeIcon},
    KnownIcon{"NSComputer", "computer", QStyle::SP_ComputerIcon},
    KnownIcon{"NSNetwork", "network-workgroup", QStyle::SP_DriveNetIcon},
    KnownIcon{"NSTrashEmpty", "user-trash", QStyle::SP_TrashIcon},
    KnownIcon{"NSTrashFull", "user-trash-full", QStyle::SP_TrashIcon},
    KnownIcon{"NSMultipleDocuments", "edit-copy", QStyle::SP_FileIcon},
    KnownIcon{"NSUser", "avatar-default", kNotDrawn},
    KnownIcon{"NSUserGuest", "avatar-default", kNotDrawn},
    KnownIcon{"NSUserGroup", "system-users", kNotDrawn},
    KnownIcon{"NSEveryone", "system-users", kNotDrawn},
    KnownIcon{"NSPreferencesGeneral", "preferences-system", kNotDrawn},
    KnownIcon{"NSAdvanced", "preferences-other", kNotDrawn},
    KnownIcon{"NSColorPanel", "preferences-color", kNotDrawn},
    KnownIcon{"NSFontPanel", "preferences-desktop-font", kNotDrawn},
    KnownIcon{"NSAddTemplate", "list-add", kNotDrawn},
    KnownIcon{"NSRemoveTemplate", "list-remove", kNotDrawn},
    KnownIcon{"NSGoLeftTemplate", "go-previous", QStyle::SP_ArrowLeft},
    KnownIcon{"NSGoRightTemplate", "go-next", QStyle::SP_ArrowRight},
    KnownIcon{"NSLeftFacingTriangleTemplate", "pan-start", QStyle::SP_ArrowLeft},
    KnownIcon{"NSRightFacingTriangleTemplate", "pan-end", QStyle::SP_ArrowRight},
    KnownIcon{"NSRefreshTemplate", "view-refresh", QStyle::SP_BrowserReload},
    KnownIcon{"NSStopProgressTemplate", "process-stop", QStyle::SP_BrowserStop},
    KnownIcon{"NSActionTemplate", "emblem-system", kNotDrawn},
    KnownIcon{"NSBookmarksTemplate", "user-bookmarks", kNotDrawn},
    KnownIcon{"NSLockLockedTemplate", "changes-prevent", kNotDrawn},
    KnownIcon{"NSLockUnlockedTemplate", "changes-allow", kNotDrawn},
    KnownIcon{"NSListViewTemplate", "view-list", QStyle::SP_FileDialogListView},
    KnownIcon{"NSIconViewTemplate", "view-grid", QStyle::SP_FileDialogDetailedView},
    KnownIcon{"NSQuickLookTemplate", "view-reveal", kNotDrawn},
    KnownIcon{"NSStatusAvailable", "user-available", kNotDrawn},
    KnownIcon{"NSStatusUnavailable", "user-busy", kNotDrawn},
    KnownIcon{"NSMenuOnStateTemplate", "object-select", QStyle::SP_DialogApplyButton},
};

/// What a resource may be called after its name.
constexpr std::array kExtensions{"", "png", "svg", "jpg", "jpeg", "gif", "tiff", "tif", "bmp", "ico", "webp"};

velt::Ref<NSImage> ofIcon(const QIcon& icon) {
    constexpr int kSide = 32;
    const QImage picture = icon.pixmap(QSize(kSide, kSide), qApp->devicePixelRatio()).toImage();
    return picture.isNull() ? velt::Ref<NSImage>() : velt::make<NSImage>(picture);
}

}  // namespace

velt::Ref<NSImage> NSImage::named(const std::string& name) {
    if (name.empty()) return nullptr;
    for (const char* extension : kExtensions) {
        const std::string path = NSBundle::mainBundle().pathForResource(name, extension);
        if (path.empty()) continue;
        if (velt::Ref<NSImage> found = fromFile(path)) return found;
    }
    velt::requireApplicationObject("an icon");
    const auto* known = std::find_if(kIcons.begin(), kIcons.end(), [&](const auto& icon) { return icon.name == name; });
    if (known == kIcons.end()) return ofIcon(QIcon::fromTheme(QString::fromStdString(name)));
    if (velt::Ref<NSImage> found = ofIcon(QIcon::fromTheme(QLatin1String(known->themed)))) return found;
    return known->drawn == kNotDrawn ? nullptr : ofIcon(QApplication::style()->standardIcon(known->drawn));
}
