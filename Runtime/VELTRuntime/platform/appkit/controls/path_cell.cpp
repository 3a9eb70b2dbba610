#include "VELTRuntime/platform/appkit/controls/path_cell.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/path_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/file_url.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/process/launching.h"

#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QMimeDatabase>
#include <QUrl>
#include <cmath>

using velt::cellFlag;
using velt::cellProperty;
using velt::Ref;

namespace {

std::string iconOf(const NSURL& url) {
    if (!url.isFile()) return url.filePath().empty() || url.filePath() == "/" ? "network-server" : "text-html";
    const QFileInfo file(QString::fromStdString(url.filePath()));
    const QString path = QDir::cleanPath(file.absoluteFilePath());
    if (path == QDir::rootPath()) return "drive-harddisk";
    if (path == QDir::homePath()) return "user-home";
    if (file.isDir()) return "folder";
    return QMimeDatabase().mimeTypeForFile(file).iconName().toStdString();
}

Ref<NSPathComponentCell> component(const QString& name, const id& url) {
    Ref<NSPathComponentCell> cell = velt::make<NSPathComponentCell>();
    cell->setStringValue(velt::textValue(name));
    cell->setUrl(velt::to<NSURL>(url));
    return cell;
}

std::vector<Ref<NSPathComponentCell>> componentsOf(const NSURL& url) {
    std::vector<Ref<NSPathComponentCell>> cells;
    const QStringList parts = QString::fromStdString(url.filePath()).split(u'/', Qt::SkipEmptyParts);
    if (url.isFile()) {
        QString path = QDir::rootPath();
        cells.push_back(component(path, velt::fileUrl(path)));
        for (const QString& part : parts) {
            path += (path.endsWith(u'/') ? QString() : QStringLiteral("/")) + part;
            cells.push_back(component(part, velt::fileUrl(path)));
        }
        return cells;
    }
    QUrl whole(QString::fromStdString(url.text()));
    QUrl place = whole;
    place.setPath(QStringLiteral("/"));
    place.setQuery(QString());
    place.setFragment(QString());
    const QString host = whole.host().isEmpty() ? whole.scheme() : whole.host();
    cells.push_back(component(host, NSURL::withString(place.toEncoded().toStdString())));
    QString path;
    for (const QString& part : parts) {
        path += u'/' + part;
        place.setPath(path, QUrl::DecodedMode);
        cells.push_back(component(part, NSURL::withString(place.toEncoded().toStdString())));
    }
    // The last part is the URL itself, with its query.
    cells.back()->setUrl(const_cast<NSURL*>(&url));
    return cells;
}

}  // namespace

void NSPathComponentCell::setUrl(NSURL* url) {
    url_ = velt::boxResult(url);
    iconName_ = url ? iconOf(*url) : std::string();
    changed();
}

void NSPathComponentCell::describe(velt::ClassBuilder<NSPathComponentCell>& c) {
    c.property("URL", &NSPathComponentCell::url, &NSPathComponentCell::setUrl).owns(&NSPathComponentCell::url_);
}

// The path.

NSPathCell::NSPathCell() {
    setEditable(true);
    NSActionCell::setObjectValue(nil);
}

void NSPathCell::setObjectValue(const id& value) {
    id url = value;
    if (velt::isString(value)) {
        const QString text = velt::qtText(value);
        if (text.isEmpty())
            url = nil;
        else if (text.startsWith(u'/'))
            url = velt::fileUrl(text);
        else
            url = NSURL::withString(velt::utf8(value));
        if (url.isNil() && !text.isEmpty()) velt::raiseClassExpected(NSURL::entry());
    }
    const NSURL* taken = velt::to<NSURL>(url);
    components_ = taken ? componentsOf(*taken) : std::vector<Ref<NSPathComponentCell>>();
    clicked_ = nil;
    NSActionCell::setObjectValue(url);
}

id NSPathCell::stringValue() const {
    const id url = objectValue();
    if (url.isNil()) return velt::string(std::u16string_view());
    const NSURL& shown = *velt::as<NSURL>(url);
    return velt::string(shown.isFile() ? shown.filePath() : shown.text());
}

void NSPathCell::setPathStyle(unsigned long style) {
    if (style > kPopUp) return;
    style_ = style;
    changed();
}

id NSPathCell::pathComponentCells() const {
    Ref<NSMutableArray> cells = velt::make<NSMutableArray>();
    for (const Ref<NSPathComponentCell>& cell : components_) cells->append(cell);
    return cells;
}

void NSPathCell::setPathComponentCells(const id& cells) {
    std::vector<Ref<NSPathComponentCell>> taken;
    if (const NSArray* array = velt::to<NSArray>(cells)) {
        for (const id& cell : array->items()) {
            if (!velt::is<NSPathComponentCell>(cell)) velt::raiseClassExpected(NSPathComponentCell::entry());
            taken.emplace_back(velt::as<NSPathComponentCell>(cell));
        }
    }
    components_ = std::move(taken);
    clicked_ = nil;
    changed();
}

id NSPathCell::doubleActionName() const { return velt::actionName(doubleAction_); }
void NSPathCell::setDoubleAction(const id& name) { doubleAction_ = velt::actionNamed(name); }

void NSPathCell::setAllowedTypes(const id& types) {
    velt::to<NSArray>(types);
    allowedTypes_ = types;
}

bool NSPathCell::allows(const std::string& path) const {
    if (!velt::is<NSArray>(allowedTypes_)) return true;
    const QString ending = QFileInfo(QString::fromStdString(path)).suffix();
    for (const id& type : velt::as<NSArray>(allowedTypes_)->items()) {
        if (velt::qtText(type).compare(ending, Qt::CaseInsensitive) == 0) return true;
    }
    return false;
}

void NSPathCell::setBackgroundColor(const id& color) {
    velt::to<NSColor>(color);
    backgroundColor_ = color;
    changed();
}

void NSPathCell::setPlaceholderString(const id& text) {
    placeholder_ = text.isNil() ? nil : VELT_CSTRING(text);
    changed();
}

NSSize NSPathCell::cellSize() const {
    velt::requireApplicationObject("a path control");
    const QFontMetricsF metrics(velt::as<NSFont>(font())->font());
    return velt::pathSize(*this, metrics);
}

void NSPathCell::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSPathComponentCell>& cell : components_) visitor.visit(cell);
    NSActionCell::visitOwned(visitor);
}

template <class T> void NSPathCell::describePath(velt::ClassBuilder<T>& c) {
    using Cell = NSPathCell;
    cellProperty<&Cell::url, &Cell::setUrl>(c, "URL");
    cellProperty<&Cell::pathStyle, &Cell::setPathStyle>(c, "pathStyle");
    cellProperty<&Cell::pathComponentCells, &Cell::setPathComponentCells>(c, "pathComponentCells");
    velt::cellAnswer<&Cell::clickedPathComponentCell>(c, "clickedPathComponentCell");
    cellProperty<&Cell::doubleActionName, &Cell::setDoubleAction>(c, "doubleAction");
    cellProperty<&Cell::allowedTypes, &Cell::setAllowedTypes>(c, "allowedTypes");
    cellProperty<&Cell::backgroundColor, &Cell::setBackgroundColor>(c, "backgroundColor");
    cellProperty<&Cell::placeholderString, &Cell::setPlaceholderString>(c, "placeholderString");
}

void NSPathCell::describe(velt::ClassBuilder<NSPathCell>& c) {
    describePath(c);
    c.owns(&NSPathCell::clicked_)
        .owns(&NSPathCell::allowedTypes_)
        .owns(&NSPathCell::backgroundColor_)
        .owns(&NSPathCell::placeholder_);
}

// The control.

std::unique_ptr<QWidget> NSPathControl::makeWidget() {
    auto made = std::make_unique<velt::PathWidget>();
    watchEvents(*made);
    return made;
}

void NSPathControl::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::PathWidget&>(widget).cellShown();
}

void NSPathControl::clicked(NSPathComponentCell& component) noexcept {
    if (!isEnabled()) return;
    ownCell().setClicked(velt::boxResult(&component));
    worked();
}

void NSPathControl::doubleClicked(NSPathComponentCell& component) noexcept {
    if (!isEnabled()) return;
    const Ref<NSPathControl> kept(this);
    const Ref<NSPathComponentCell> opened(&component);
    velt::runReported([&] {
        ownCell().setClicked(opened);
        if (ownCell().doubleAction())
            sendAction(ownCell().doubleAction(), target());
        else if (velt::is<NSURL>(opened->url()))
            VELT_SAFARI(velt::string(velt::as<NSURL>(opened->url())->text()));
    });
}

void NSPathControl::chosen(const std::string& path) noexcept {
    if (!isEnabled() || !isEditable() || !ownCell().allows(path)) return;
    const Ref<NSPathControl> kept(this);
    velt::runReported([&] { setObjectValue(velt::fileUrl(QString::fromStdString(path))); });
    worked();
}

void NSPathControl::describe(velt::ClassBuilder<NSPathControl>& c) {
    NSPathCell::describePath(c);
    c.flag("editable", &NSPathControl::isEditable, &NSPathControl::setEditable);
}
