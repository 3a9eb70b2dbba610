#include "VELTRuntime/platform/appkit/pasteboard.h"

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/class_casts.h"

#include <QMimeData>
#include <QUrl>
#include <algorithm>

using velt::Ref;

namespace {

const char16_t* const kTextTypes[] = {u"NSStringPboardType", u"public.utf8-plain-text"};
const char16_t* const kFileType = u"NSFilenamesPboardType";

}  // namespace

id NSPasteboard::types() const {
    Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const auto& [type, value] : values_) list->append(type);
    return list;
}

long NSPasteboard::declareTypes(const id& types, const id& owner) {
    std::vector<std::pair<id, id>> values;
    const id given = VELT_CARRAY(types);
    if (const NSArray* list = velt::arrayOf(given)) {
        for (std::size_t i = 0; i < list->count(); ++i) values.emplace_back(list->items()[i], nil);
    }
    values_ = std::move(values);
    owner_ = owner;
    return ++changes_;
}

id NSPasteboard::availableTypeFromArray(const id& types) const {
    const id given = VELT_CARRAY(types);
    const NSArray* list = velt::arrayOf(given);
    for (std::size_t i = 0; list && i < list->count(); ++i) {
        const id wanted = list->items()[i];
        for (const auto& [type, value] : values_) {
            if (velt::isEqual(type, wanted)) return type;
        }
    }
    return nil;
}

bool NSPasteboard::setValue(const id& value, const id& type) {
    const auto found =
        std::find_if(values_.begin(), values_.end(), [&](const auto& own) { return velt::isEqual(own.first, type); });
    if (found == values_.end()) {
        values_.emplace_back(type, value);
    } else {
        found->second = value;
    }
    return true;
}

id NSPasteboard::value(const id& type) {
    const auto find = [&] {
        return std::find_if(values_.begin(), values_.end(),
                            [&](const auto& own) { return velt::isEqual(own.first, type); });
    };
    if (find() == values_.end()) return nil;
    const velt::Selector asks = VELT_SELECTOR("pasteboard:provideDataForType:");
    if (find()->second.isNil() && velt::respondsTo(owner_, asks)) {
        const id owner = owner_;
        velt::send(owner, asks, id(static_cast<NSObject*>(this)), type);
    }
    const auto found = find();
    return found == values_.end() ? id() : found->second;
}

id NSPasteboard::stringForType(const id& type) {
    id found = value(type);
    if (velt::isString(found)) return found;
    const auto* data = velt::is<NSData>(found) ? velt::as<NSData>(found) : nullptr;
    return data ? velt::string(data->characters()) : nil;
}

id NSPasteboard::dataForType(const id& type) {
    id found = value(type);
    if (velt::is<NSData>(found)) return found;
    return velt::isString(found) ? id(velt::make<NSData>(velt::utf8(found))) : nil;
}

void NSPasteboard::visitOwned(velt::OwnedVisitor& visitor) {
    for (auto& [type, value] : values_) visitor.visit(value);
    NSObject::visitOwned(visitor);
}

void NSPasteboard::describe(velt::ClassBuilder<NSPasteboard>& c) {
    c.property("types", &NSPasteboard::types)
        .method("declareTypes:owner:", &NSPasteboard::declareTypes)
        .method("clearContents", &NSPasteboard::clearContents)
        .property("changeCount", &NSPasteboard::changeCount)
        .method("availableTypeFromArray:", &NSPasteboard::availableTypeFromArray)
        .method("setString:forType:", &NSPasteboard::setValue)
        .method("setData:forType:", &NSPasteboard::setValue)
        .method("setPropertyList:forType:", &NSPasteboard::setValue)
        .method("stringForType:", &NSPasteboard::stringForType)
        .method("dataForType:", &NSPasteboard::dataForType)
        .method("propertyListForType:", &NSPasteboard::value)
        .owns(&NSPasteboard::owner_);
}

void NSDraggingInfo::describe(velt::ClassBuilder<NSDraggingInfo>& c) {
    c.property("draggingPasteboard", &NSDraggingInfo::draggingPasteboard)
        .property("draggingSource", &NSDraggingInfo::draggingSource)
        .property("draggingLocation", &NSDraggingInfo::draggingLocation)
        .property("draggingSourceOperationMask", &NSDraggingInfo::draggingSourceOperationMask)
        .owns(&NSDraggingInfo::pasteboard_)
        .owns(&NSDraggingInfo::source_);
}

namespace velt {

std::unique_ptr<QMimeData> mimeOf(NSPasteboard& pasteboard) {
    auto mime = std::make_unique<QMimeData>();
    for (const char16_t* type : kTextTypes) {
        const id text = pasteboard.stringForType(string(type));
        if (!text.isNil()) mime->setText(qtText(text));
    }
    const id files = pasteboard.value(string(kFileType));
    if (const NSArray* paths = arrayOf(files)) {
        QList<QUrl> urls;
        for (std::size_t i = 0; i < paths->count(); ++i) urls.append(QUrl::fromLocalFile(qtText(paths->items()[i])));
        mime->setUrls(urls);
    }
    // The toolkit drags nothing that has no format.
    if (mime->formats().isEmpty()) mime->setData(QStringLiteral("application/octet-stream"), {});
    return mime;
}

Ref<NSPasteboard> pasteboardOf(const QMimeData& dragged) {
    Ref<NSPasteboard> pasteboard = make<NSPasteboard>();
    Ref<NSMutableArray> paths = make<NSMutableArray>();
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile()) paths->append(textValue(url.toLocalFile()));
    }
    if (paths->count() > 0) pasteboard->setValue(paths, string(kFileType));
    if (dragged.hasText()) {
        for (const char16_t* type : kTextTypes) pasteboard->setValue(textValue(dragged.text()), string(type));
    }
    return pasteboard;
}

}  // namespace velt
