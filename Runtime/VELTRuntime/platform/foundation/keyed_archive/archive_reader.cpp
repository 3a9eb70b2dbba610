#include "VELTRuntime/platform/foundation/keyed_archive/archive_reader.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_keys.h"
#include "VELTRuntime/platform/foundation/keyed_archive/number_types.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/borrowed.h"

#include <pthread.h>

namespace velt {

namespace {

constexpr std::uint32_t kHeavy = UINT32_MAX;
/// Keys are compared with each other, and a comparison looks at all that they hold.
constexpr std::uint32_t kMostInKey = 1000;
/// What any archive may make beyond its own size, however small it is.
constexpr std::size_t kFreeAllowance = std::size_t{64} << 20;
constexpr std::size_t kAllowancePerByte = 16;
/// Nested objects of a program are counted from here on by the room that they leave on the stack.
constexpr unsigned kSurelyNested = 200;
constexpr std::size_t kStackReserve = std::size_t{256} << 10;

std::uint32_t sum(std::uint32_t a, std::uint32_t b) { return a > kHeavy - b ? kHeavy : a + b; }

Selector initSelector() {
    static const Selector selector = Selector::named("initWithCoder:");
    return selector;
}

std::string numbered(std::uint32_t place) { return "object " + std::to_string(place); }

}  // namespace

ArchiveReader::ArchiveReader(const id& propertyList, std::size_t archiveSize)
    : list_(propertyList), allowance_(kFreeAllowance + kAllowancePerByte * archiveSize) {
    const NSDictionary& root = requireDictionary(list_, "the archive");
    top_ = &requireDictionary(root.objectForKey(topKey()), "$top");
    content_ = top_;
    objects_ = arrayOf(root.objectForKey(objectsKey()));
    if (!objects_ || objects_->count() == 0) throw ArchiveDamage("$objects is no list of objects");
    const id archiver = root.objectForKey(archiverKey());
    if (!archiver.isNil() && !isString(archiver)) throw ArchiveDamage("$archiver is no name");
    const id version = root.objectForKey(versionKey());
    if (!version.isNil() && !isNumber(version)) throw ArchiveDamage("$version is no number");
    places_.resize(objects_->count());
    places_[0].state = State::Done;
    readNumberTypes(root);
}

const NSDictionary& ArchiveReader::requireDictionary(const id& value, const char* what) const {
    const NSDictionary* dictionary = dictionaryOf(value);
    if (!dictionary) throw ArchiveDamage(std::string(what) + " is no dictionary");
    return *dictionary;
}

void ArchiveReader::readNumberTypes(const NSDictionary& root) {
    const id types = root.objectForKey(numberTypesKey());
    if (types.isNil()) return;
    requireDictionary(types, "VELT.numberTypes").forEach([this](const id& code, const id& list) {
        const NSArray* places = arrayOf(list);
        if (!places || !isString(code) || textOf(code).size() != 1) throw ArchiveDamage("VELT.numberTypes is damaged");
        for (const id& item : places->items()) {
            const std::int64_t place = isNumber(item) ? integerReading(item.word()) : -1;
            if (place < 0 || static_cast<std::size_t>(place) >= places_.size()) {
                throw ArchiveDamage("VELT.numberTypes is damaged");
            }
            places_[static_cast<std::size_t>(place)].typeCode = static_cast<char>(textOf(code)[0]);
        }
    });
}

id ArchiveReader::rootValue() const {
    id value = top_->objectForKey(rootKey());
    if (value.isNil() && top_->count() == 1) value = top_->objectForKey(top_->keyAt(0));
    if (value.isNil()) throw ArchiveDamage("$top has no root");
    return value;
}

std::optional<std::uint32_t> ArchiveReader::placeOf(const id& value) const {
    std::int64_t place = -1;
    if (is<PropertyListUid>(value)) {
        place = as<PropertyListUid>(value)->value();
    } else if (const NSDictionary* written = dictionaryOf(value)) {
        // The XML form has no element for a reference.
        const id number = written->count() == 1 ? written->objectForKey("CF$UID"_v) : id();
        if (number.isNil()) return std::nullopt;
        place = isNumber(number) ? integerReading(number.word()) : -1;
    } else {
        return std::nullopt;
    }
    if (place < 0 || static_cast<std::size_t>(place) >= places_.size()) {
        throw ArchiveDamage("there is no object " + std::to_string(place));
    }
    return static_cast<std::uint32_t>(place);
}

void ArchiveReader::charge(std::size_t bytes) {
    if (bytes > allowance_) throw ArchiveDamage("the archive would become far larger than it is");
    allowance_ -= bytes;
}

id ArchiveReader::plainObject(const id& value, char typeCode) {
    if (isNumber(value)) return typedNumber(value, typeCode);
    if (isString(value)) {
        // Shared by whatever refers to it.
        return value.object()->copy();
    }
    if (const NSData* data = dataOf(value)) {
        if (data->kind() == Kind::MutableData) charge(data->length());
        return value.object()->copy();
    }
    if (is<NSDate>(value)) return value;
    throw ArchiveDamage("a '" + classOf(value)->name() + "' stands in place of an object");
}

id ArchiveReader::object(const id& value, const id& coder) {
    if (value.isNil()) return nil;
    const auto place = placeOf(value);
    return place ? make(*place, coder) : plainObject(value, 0);
}

id ArchiveReader::make(std::uint32_t place, const id& coder) {
    if (places_[place].state == State::UnderWay && places_[place].object.isNil()) {
        throw ArchiveDamage(numbered(place) + " cannot be a part of itself");
    }
    if (places_[place].state != State::Untouched) return places_[place].object;
    // Frames of the objects around this one stay below; whatever happens, none is left above them.
    struct Restored {
        ArchiveReader& reader;
        std::size_t frames, parts, values;
        ~Restored() {
            reader.frames_.resize(frames);
            reader.parts_.resize(parts);
            reader.values_.resize(values);
        }
    } const restored{*this, frames_.size(), parts_.size(), values_.size()};
    begin(place, coder);
    while (frames_.size() > restored.frames) step(coder, restored.frames);
    return places_[place].object;
}

/// Makes an object at once, or puts a frame on the list for it; true when it is there at once.
bool ArchiveReader::begin(std::uint32_t place, const id& coder) {
    const id& written = objects_->at(static_cast<long>(place));
    if (const NSDictionary* content = dictionaryOf(written)) {
        beginDictionary(place, *content, coder);
        return places_[place].state == State::Done;
    }
    places_[place].object = plainObject(written, places_[place].typeCode);
    places_[place].weight = 1;
    places_[place].state = State::Done;
    return true;
}

void ArchiveReader::beginDictionary(std::uint32_t place, const NSDictionary& content, const id& coder) {
    const ClassReading reading = classReading(content);
    places_[place].state = State::UnderWay;
    if (reading.cls) {
        makeOwn(place, *reading.cls, content, coder);
        return;
    }
    places_[place].weight = kHeavy;
    if (reading.coding->makeEmpty) places_[place].object = reading.coding->makeEmpty();
    const std::size_t firstPart = parts_.size();
    const NSDictionary* const around = std::exchange(content_, &content);
    reading.coding->addParts(*this);
    content_ = around;
    charge((parts_.size() - firstPart) * sizeof(id));
    frames_.push_back({place, reading.coding, &content, firstPart, parts_.size(), firstPart, values_.size(), 1});
}

void ArchiveReader::makeOwn(std::uint32_t place, const Class& cls, const NSDictionary& content, const id& coder) {
    requireStack();
    struct Scope {
        ArchiveReader& reader;
        const NSDictionary* around;
        Scope(ArchiveReader& r, const NSDictionary& c) : reader(r), around(std::exchange(r.content_, &c)) {
            ++reader.nesting_;
        }
        ~Scope() {
            reader.content_ = around;
            --reader.nesting_;
        }
    } const scope(*this, content);
    const id object = cls.newObject();
    places_[place].object = object;
    places_[place].weight = 1;
    const CollectionPause ended(false);  // what the object does is its own affair
    // The object may put another one in its place.
    id made = send(object, initSelector(), coder);
    if (!made.isNil()) places_[place].object = std::move(made);
    places_[place].state = State::Done;
}

/// One part of the object on top of the list, or nothing when a frame was put there for it.
std::optional<ArchiveReader::Part> ArchiveReader::part(const id& value, const id& coder) {
    if (value.isNil()) return Part{nil, 0};
    const auto place = placeOf(value);
    if (!place) return Part{plainObject(value, 0), 1};
    const Place& found = places_[*place];
    if (found.state == State::UnderWay && found.object.isNil()) {
        throw ArchiveDamage(numbered(*place) + " cannot be a part of itself");
    }
    if (found.state == State::Untouched && !begin(*place, coder)) return std::nullopt;
    return Part{places_[*place].object, places_[*place].weight};
}

void ArchiveReader::step(const id& coder, std::size_t outermost) {
    const std::size_t at = frames_.size() - 1;
    if (frames_[at].nextPart == frames_[at].partEnd) {
        finish(outermost);
        return;
    }
    // One owner more or less on each reference in an archive would make all of them candidates for the collector of
    // cycles.
    const Borrowed value(parts_[frames_[at].nextPart++]);
    if (auto made = part(value, coder)) addValue(std::move(made->object), made->weight);
}

void ArchiveReader::addValue(id value, std::uint32_t weight) {
    Frame& frame = frames_.back();
    const bool isKey = frame.coding->hasKeys && (frame.nextPart - frame.firstPart) % 2 == 1;
    if (isKey && weight > kMostInKey) throw ArchiveDamage(numbered(frame.place) + " has a key that holds too much");
    frame.weight = sum(frame.weight, weight);
    values_.push_back(std::move(value));
}

void ArchiveReader::finish(std::size_t outermost) {
    const Frame frame = frames_.back();
    const NSDictionary* const around = std::exchange(content_, frame.content);
    const std::span<id> parts(values_.data() + frame.firstValue, values_.size() - frame.firstValue);
    Place& place = places_[frame.place];
    place.object = frame.coding->finish(*this, place.object, parts);
    place.state = State::Done;
    place.weight = frame.weight;
    content_ = around;
    frames_.pop_back();
    parts_.resize(frame.firstPart);
    values_.resize(frame.firstValue);
    if (frames_.size() > outermost) addValue(place.object, place.weight);
}

void ArchiveReader::addPart(const id& key) { parts_.push_back(content_->wordForText(asString(key))); }

const NSArray* ArchiveReader::listUnder(const id& key) const {
    const id value = content_->objectForKey(key);
    const NSArray* list = arrayOf(value);
    if (!list && !value.isNil()) throw ArchiveDamage("'" + utf8(key) + "' is no list");
    return list;
}

ArchiveReader::ClassReading ArchiveReader::classReading(const NSDictionary& content) {
    const Borrowed reference(content.wordForText(asString(classKey())));
    const auto place = placeOf(reference);
    if (!place) throw ArchiveDamage("an object has no class");
    const auto known = classes_.find(*place);
    if (known != classes_.end()) return known->second;
    const id& description = objects_->at(static_cast<long>(*place));
    const ClassReading reading = resolveClass(requireDictionary(description, "a class"));
    classes_.emplace(*place, reading);
    return reading;
}

/// The first class of the object's own and its superclasses that is known here and can be read.
ArchiveReader::ClassReading ArchiveReader::resolveClass(const NSDictionary& description) const {
    const auto readingOf = [](std::string_view name) {
        ClassReading reading;
        reading.coding = contentCoding(publicClassName(name));
        if (reading.coding) return reading;
        const Class* cls = Class::named(name);
        if (cls && cls->canMakeObjects() && cls->method(initSelector())) reading.cls = cls;
        return reading;
    };
    const id ownName = description.objectForKey(classNameKey());
    if (!isString(ownName)) throw ArchiveDamage("a class has no name");
    ClassReading reading = readingOf(utf8(ownName));
    if (reading.coding || reading.cls) return reading;
    const id chain = description.objectForKey(classesKey());
    if (!chain.isNil() && !isArray(chain)) throw ArchiveDamage("$classes is no list");
    if (const NSArray* names = arrayOf(chain)) {
        for (const id& name : names->items()) {
            if (!isString(name)) throw ArchiveDamage("a class has no name");
            reading = readingOf(utf8(name));
            if (reading.coding || reading.cls) return reading;
        }
    }
    throw ArchiveDamage("'" + utf8(ownName) + "' objects cannot be read");
}

void ArchiveReader::requireStack() {
    if (nesting_ < kSurelyNested) return;
    if (nesting_ == kSurelyNested) {
        pthread_attr_t attributes;
        void* lowest = nullptr;
        std::size_t size = 0;
        if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
            pthread_attr_getstack(&attributes, &lowest, &size);
            pthread_attr_destroy(&attributes);
        }
        stackEnd_ = reinterpret_cast<std::uintptr_t>(lowest);
    }
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    if (here < stackEnd_ + kStackReserve) throw ArchiveDamage("objects lie too deep in each other");
}

}  // namespace velt
