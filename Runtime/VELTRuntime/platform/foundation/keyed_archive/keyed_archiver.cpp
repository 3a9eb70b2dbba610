#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_keys.h"
#include "VELTRuntime/platform/foundation/keyed_archive/content_coding.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

using namespace velt;

namespace {

NSMutableDictionary& asMutableDictionary(const id& value) { return *as<NSMutableDictionary>(value); }

Selector encodeSelector() {
    static const Selector selector = Selector::named("encodeWithCoder:");
    return selector;
}

/// The type code that a reader would take a number's plain form for.
const char* plainTypeCode(const id& number) {
    switch (numberCode(number.word())) {
    case NumberCode::Double:
    case NumberCode::Float: return "d";
    case NumberCode::Char: return asWholeWord(number.word()) >> 1 == 0 ? "c" : "q";
    case NumberCode::UnsignedLong: return integerReading(number.word()) < 0 ? "Q" : "q";  // its 64 bits taken as signed
    default: return "q";
    }
}

bool isFrozenString(const id& value) { return isString(value) && asString(value).isFrozen(); }

}  // namespace

NSKeyedArchiver::NSKeyedArchiver() : top_(make<NSMutableDictionary>()), content_(top_) {
    addPlace(nil, "$null"_v);
    next_ = 1;
}

std::string NSKeyedArchiver::archive(const id& root) {
    const Ref<NSKeyedArchiver> archiver = make<NSKeyedArchiver>();
    archiver->encodeObject(root, rootKey());
    return archiver->finish();
}

id NSKeyedArchiver::archivedData(const id& root) { return make<NSData>(archive(root)); }

bool NSKeyedArchiver::archiveToFile(const id& root, const std::string& path) {
    return writeFileAtomically(path, archive(root));
}

std::uint32_t NSKeyedArchiver::addPlace(const id& source, const id& entry) {
    const auto place = static_cast<std::uint32_t>(entries_.size());
    sources_.push_back(source);
    entries_.push_back(entry);
    uids_.emplace_back();
    waiting_.push_back(entry.isNil());
    return place;
}

id NSKeyedArchiver::uid(std::uint32_t place) {
    if (uids_[place].isNil()) uids_[place] = make<PropertyListUid>(place);
    return uids_[place];
}

void NSKeyedArchiver::addNumber(const id& number) {
    const std::uint32_t place = addPlace(nil, number);
    const char* code = typeCode(number);
    if (std::string_view(code) != plainTypeCode(number)) {
        if (numberTypes_.isNil()) numberTypes_ = make<NSMutableDictionary>();
        NSMutableDictionary& types = asMutableDictionary(numberTypes_);
        const id key = frozenString(code);
        if (types.objectForKey(key).isNil()) types.setObject(make<NSMutableArray>(), key);
        mutableArrayOf(types.objectForKey(key))->append(VELT_ID(static_cast<long>(place)));
    }
}

template <class Search> std::uint32_t NSKeyedArchiver::search(const id& object, Search&& in) {
    if (isNumber(object)) {
        const std::size_t hash = object.isObject() ? numberHash(object.word()) : object.word() * 0x9E3779B97F4A7C15u;
        return in(numbers_, hash, [&](std::uint32_t place) {
            // By word, which tells 0.0 from -0.0 and 1 from 1.0; numbers outside the word are of three types and
            // never 0.
            const id& other = entries_[place];
            return other == object || (other.isObject() && object.isObject() && velt::isEqual(other, object) &&
                                       numberCode(other.word()) == numberCode(object.word()));
        });
    }
    if (isFrozenString(object)) {
        return in(texts_, object.object()->hash(),
                  [&](std::uint32_t place) { return textOf(sources_[place]) == textOf(object); });
    }
    if (isKind(object.word(), Kind::Data)) {
        return in(data_, object.object()->hash(), [&](std::uint32_t place) {
            return dataOf(entries_[place])->characters() == dataOf(object)->characters();
        });
    }
    return in(objects_, object.object()->NSObject::hash(),
              [&](std::uint32_t place) { return sources_[place] == object; });
}

std::uint32_t NSKeyedArchiver::placeOf(const id& object) {
    if (object.isNil()) return 0;
    const auto next = static_cast<std::uint32_t>(entries_.size());
    const std::uint32_t place = search(object, [next](PlaceTable& table, std::size_t hash, const auto& isSame) {
        return table.findOrAdd(hash, next, isSame);
    });
    if (place != next) return place;
    if (isNumber(object)) {
        addNumber(object);
    } else if (isFrozenString(object)) {
        // A text that looks like nil is written as an object.
        addPlace(object, textOf(object) == u"$null" ? id() : object);
    } else {
        addPlace(object, isKind(object.word(), Kind::Data) ? object : id());
    }
    return place;
}

std::uint32_t NSKeyedArchiver::knownPlaceOf(const id& object) {
    return search(
        object, [](const PlaceTable& table, std::size_t hash, const auto& isSame) { return table.find(hash, isSame); });
}

std::uint32_t NSKeyedArchiver::placeOfClass(const Class& cls) {
    const auto found = classes_.find(&cls);
    if (found != classes_.end()) return found->second;
    const Ref<NSMutableArray> names = make<NSMutableArray>();
    for (const Class* each = &cls; each; each = each->superclass()) names->append(frozenString(each->name()));
    const Ref<NSMutableDictionary> entry = make<NSMutableDictionary>();
    entry->setObject(names->at(0), classNameKey());
    entry->setObject(names, classesKey());
    const std::uint32_t place = addPlace(nil, entry);
    classes_.emplace(&cls, place);
    return place;
}

id NSKeyedArchiver::reference(const id& object) { return uid(placeOf(object)); }

id NSKeyedArchiver::references(std::span<const id> objects) {
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    list->reserve(objects.size());
    for (const id& object : objects) list->append(reference(object));
    return list;
}

void NSKeyedArchiver::setContent(const id& value, const id& key) {
    asMutableDictionary(content_).setObject(value, key);
}

void NSKeyedArchiver::requireOpen() const {
    if (finished_) raise(kInvalidArgumentException, "the archive is finished: nothing can be added");
}

void NSKeyedArchiver::encodeObject(const id& object, const id& key) {
    requireOpen();
    setContent(reference(object), archiveKey(key));
    if (!encoding_) encodeWaiting();
}

void NSKeyedArchiver::encodeConditionalObject(const id& object, const id& key) {
    requireOpen();
    const id kept = archiveKey(key);
    setContent(uid(0), kept);
    if (!object.isNil()) conditionals_.push_back({content_, kept, object});
}

void NSKeyedArchiver::encodePlain(const id& value, const id& key) {
    requireOpen();
    setContent(value, archiveKey(key));
}

void NSKeyedArchiver::encodeWaiting() {
    struct Encoding {
        bool& flag;
        explicit Encoding(bool& f) : flag(f) { flag = true; }
        ~Encoding() { flag = false; }
    } const encoding(encoding_);
    // The content of an object adds further places behind.
    for (; next_ < entries_.size(); ++next_) {
        if (waiting_[next_]) encodeContent(static_cast<std::uint32_t>(next_));
    }
}

void NSKeyedArchiver::encodeContent(std::uint32_t place) {
    const id object = sources_[place];
    const Class& cls = object.object()->isa();
    const ContentCoding* coding = contentCodingFor(cls);
    if (!coding && !cls.method(encodeSelector())) {
        raise(kInvalidArgumentException, "'" + cls.name() + "' objects cannot be archived");
    }
    const Setting<id> scope(content_, make<NSMutableDictionary>());
    entries_[place] = content_;
    waiting_[place] = false;
    // A frozen string is an NSString in the archive; all strings are of one class here.
    setContent(uid(placeOfClass(isFrozenString(object) ? NSString::entry() : cls)), classKey());
    if (coding) {
        coding->encode(*this, object);
    } else {
        send(object, encodeSelector(), id(this));
    }
}

std::string NSKeyedArchiver::finish() {
    requireOpen();
    encodeWaiting();
    finished_ = true;
    for (const Conditional& conditional : conditionals_) {
        const std::uint32_t place = knownPlaceOf(conditional.object);
        if (place) asMutableDictionary(conditional.container).setObject(uid(place), conditional.key);
    }
    const Ref<NSMutableDictionary> root = make<NSMutableDictionary>();
    root->setObject(VELT_ID(kArchiveVersion), versionKey());
    root->setObject(archiverName(), archiverKey());
    root->setObject(top_, topKey());
    root->setObject(make<NSArray>(entries_), objectsKey());
    if (!numberTypes_.isNil()) root->setObject(numberTypes_, numberTypesKey());
    return writePropertyList(root, PropertyListForm::Binary);
}

id NSKeyedArchiver::encodedData() { return make<NSData>(finish()); }

void NSKeyedArchiver::describe(ClassBuilder<NSKeyedArchiver>& c) {
    c.method("encodedData", &NSKeyedArchiver::encodedData)
        .method("archivedDataWithRootObject:", [](const id&, const id* a) { return archivedData(a[0]); })
        .method("archiveRootObject:toFile:",
                [](const id&, const id* a) { return boxResult(archiveToFile(a[0], utf8(VELT_CSTRING(a[1])))); });
}
