// addressbook.bas as the translator writes it: a class that codes itself by key, archives, messages by name.
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;
using example::printError;
using example::readLine;

namespace {

class Contact : public NSObject {
    VELT_OBJECT(Contact, NSObject)

public:
    id name, phone = VELT__STRING(""_v), email = VELT__STRING(""_v);
    id edits = VELT_ID(0L);

    id encodeWithCoder(id coder) {
        VELTS("addressbook.bas", "Contact.EncodeWithCoder", "11", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeObject:forKey:"_v, name, "name"_v);
        VELTS("addressbook.bas", "Contact.EncodeWithCoder", "12", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeObject:forKey:"_v, phone, "phone"_v);
        VELTS("addressbook.bas", "Contact.EncodeWithCoder", "13", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeObject:forKey:"_v, email, "email"_v);
        VELTS("addressbook.bas", "Contact.EncodeWithCoder", "14", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeInteger:forKey:"_v, edits, "edits"_v);
        return nil;
    }
    void initWithCoder(id coder) {
        VELTS("addressbook.bas", "Contact.InitWithCoder", "17", "");
        name = VELT__STRING(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeObjectForKey:"_v, "name"_v));
        VELTS("addressbook.bas", "Contact.InitWithCoder", "18", "");
        phone = VELT__STRING(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeObjectForKey:"_v, "phone"_v));
        VELTS("addressbook.bas", "Contact.InitWithCoder", "19", "");
        email = VELT__STRING(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeObjectForKey:"_v, "email"_v));
        VELTS("addressbook.bas", "Contact.InitWithCoder", "20", "");
        edits = VELT__INTEGER(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeIntegerForKey:"_v, "edits"_v));
    }
    id line() {
        VELTS("addressbook.bas", "Contact.Line", "23", "");
        return VELT__STRING(
            VELT_CONCAT(VELT_CONCAT(VELT_LEFT(VELT_CONCAT(name, VELT_SPACE(VELT_ID(24L), " "_v)), VELT_ID(24L)),
                                    VELT_LEFT(VELT_CONCAT(phone, VELT_SPACE(VELT_ID(18L), " "_v)), VELT_ID(18L))),
                        email));
    }

    static void describe(velt::ClassBuilder<Contact>& c) {
        c.property("name", &Contact::name).property("phone", &Contact::phone).property("email", &Contact::email);
        c.property("edits", &Contact::edits).method("line", &Contact::line);
        c.method("encodeWithCoder:", &Contact::encodeWithCoder).method("initWithCoder:", &Contact::initWithCoder);
    }
};

class Book : public NSObject {
    VELT_OBJECT(Book, NSObject)

public:
    id path;
    id contacts = velt::make<NSMutableDictionary>();

    id open(id location) {
        VELTS("addressbook.bas", "Book.Open", "32", "");
        path = VELT__STRING(location);
        VELTS("addressbook.bas", "Book.Open", "33", "");
        if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTS(VELT_NSFILEMANAGER_INIT(nil, ""), path))) {
            VELTS("addressbook.bas", "Book.Open", "34", "");
            contacts = VELT__NSMUTABLEDICTIONARY(VELT_READKEYEDARCHIVE(path));
        }
        return nil;
    }
    id save() {
        VELTS("addressbook.bas", "Book.Save", "38", "");
        if (VELT_CBOOL(VELT_NOT(VELT_WRITEKEYEDARCHIVE(contacts, path)))) {
            VELTS("addressbook.bas", "Book.Save", "39", "");
            printError(VELT_CONCAT("addressbook: cannot save "_v, path));
        }
        return nil;
    }

    id add(id fields) {
        VELTS("addressbook.bas", "Book.Add", "44", "");
        id name = VELT__STRING(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(fields, VELT_ID(0L))));
        VELTS("addressbook.bas", "Book.Add", "45", "");
        if (VELT_CBOOL(VELT_EQUAL(name, ""_v))) {
            VELTS("addressbook.bas", "Book.Add", "46", "");
            printError("addressbook: a name is missing"_v);
            VELTS("addressbook.bas", "Book.Add", "47", "");
            return nil;
        }
        VELTS("addressbook.bas", "Book.Add", "49", "");
        id contact = VELT_NSMUTABLEDICTIONARY_VALUE(contacts, name);
        VELTS("addressbook.bas", "Book.Add", "50", "");
        if (VELT_CBOOL(VELT_EQUAL(contact, nil))) {
            VELTS("addressbook.bas", "Book.Add", "51", "");
            contact = velt::make<Contact>();
        }
        VELTS("addressbook.bas", "Book.Add", "53", "");
        VELT_PROPERTY(contact, "name"_v, name);
        VELTS("addressbook.bas", "Book.Add", "54", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(fields), VELT_ID(1L)))) {
            VELTS("addressbook.bas", "Book.Add", "55", "");
            VELT_PROPERTY(contact, "phone"_v, VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(fields, VELT_ID(1L))));
        }
        VELTS("addressbook.bas", "Book.Add", "57", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(fields), VELT_ID(2L)))) {
            VELTS("addressbook.bas", "Book.Add", "58", "");
            VELT_PROPERTY(contact, "email"_v, VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(fields, VELT_ID(2L))));
        }
        VELTS("addressbook.bas", "Book.Add", "60", "");
        VELT_PROPERTY(contact, "edits"_v, VELT_ADD(VELT_PROPERTY(contact, "edits"_v), VELT_ID(1L)));
        VELTS("addressbook.bas", "Book.Add", "61", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(contacts, name, contact);
        VELTS("addressbook.bas", "Book.Add", "62", "");
        return save();
    }
    id remove(id name) {
        VELTS("addressbook.bas", "Book.Remove", "65", "");
        if (VELT_CBOOL(VELT_NSMUTABLEDICTIONARY_CONTAINS(contacts, name))) {
            VELTS("addressbook.bas", "Book.Remove", "66", "");
            VELT_NSMUTABLEDICTIONARY_REMOVE(contacts, name);
            VELTS("addressbook.bas", "Book.Remove", "67", "");
            save();
        } else {
            VELTS("addressbook.bas", "Book.Remove", "69", "");
            printError(VELT_CONCAT("addressbook: nobody is called "_v, name));
        }
        return nil;
    }
    id isBefore(id sorted, id place, id name) {
        VELTS("addressbook.bas", "Book.IsBefore", "73", "");
        if (VELT_CBOOL(VELT_GREATEREQUAL(place, VELT_NSMUTABLEARRAY_COUNT(sorted)))) {
            VELTS("addressbook.bas", "Book.IsBefore", "74", "");
            return VELT__BOOLEAN(VELT_ID(BOOL{0}));
        }
        VELTS("addressbook.bas", "Book.IsBefore", "76", "");
        return VELT__BOOLEAN(
            VELT_SMALLER(VELT_COMPARE(VELT_NSMUTABLEARRAY_OBJECT(sorted, place), name, VELT_ID(BOOL{0})), VELT_ID(0L)));
    }
    id names() {
        VELTS("addressbook.bas", "Book.Names", "79", "");
        id sorted = velt::make<NSMutableArray>();
        VELTS("addressbook.bas", "Book.Names", "80", "");
        id last = VELT_SUB(VELT_NSMUTABLEDICTIONARY_COUNT(contacts), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("addressbook.bas", "Book.Names", "81", "");
            id name = VELT__STRING(VELT_NSMUTABLEDICTIONARY_KEY(contacts, i));
            VELTS("addressbook.bas", "Book.Names", "82", "");
            id place = VELT__INTEGER(VELT_ID(0L));
            while (VELTS("addressbook.bas", "Book.Names", "83", ""), VELT_CBOOL(isBefore(sorted, place, name))) {
                VELTS("addressbook.bas", "Book.Names", "84", "");
                place = VELT__INTEGER(VELT_ADD(place, VELT_ID(1L)));
            }
            VELTS("addressbook.bas", "Book.Names", "86", "");
            VELT_NSMUTABLEARRAY_INSERT(sorted, name, place);
        }
        VELTS("addressbook.bas", "Book.Names", "88", "");
        return VELT__NSMUTABLEARRAY(sorted);
    }
    id list(id wanted) {
        VELTS("addressbook.bas", "Book.List", "91", "");
        id all = VELT__NSMUTABLEARRAY(names());
        VELTS("addressbook.bas", "Book.List", "92", "");
        id shown = VELT__INTEGER(VELT_ID(0L));
        VELTS("addressbook.bas", "Book.List", "93", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("addressbook.bas", "Book.List", "94", "");
            id line = VELT__STRING(VELT_NSOBJECT_PERFORMSELECTOR0(
                VELT_NSMUTABLEDICTIONARY_VALUE(contacts, VELT_NSMUTABLEARRAY_OBJECT(all, i)), "line"_v));
            VELTS("addressbook.bas", "Book.List", "95", "");
            if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(wanted, ""_v), VELT_CONTAINS(line, wanted, VELT_ID(BOOL{0}))))) {
                VELTS("addressbook.bas", "Book.List", "96", "");
                print(line);
                VELTS("addressbook.bas", "Book.List", "97", "");
                shown = VELT__INTEGER(VELT_ADD(shown, VELT_ID(1L)));
            }
        }
        VELTS("addressbook.bas", "Book.List", "100", "");
        print(VELT_CONCAT(VELT_CONCAT(shown, " of "_v), VELT_NSMUTABLEDICTIONARY_COUNT(contacts)));
        return nil;
    }
    id exportTo(id location) {
        VELTS("addressbook.bas", "Book.Export", "103", "");
        id list = velt::make<NSMutableDictionary>();
        VELTS("addressbook.bas", "Book.Export", "104", "");
        id all = VELT__NSMUTABLEARRAY(names());
        VELTS("addressbook.bas", "Book.Export", "105", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("addressbook.bas", "Book.Export", "106", "");
            id contact = VELT_NSMUTABLEDICTIONARY_VALUE(contacts, VELT_NSMUTABLEARRAY_OBJECT(all, i));
            VELTS("addressbook.bas", "Book.Export", "107", "");
            id record = velt::make<NSMutableDictionary>();
            VELTS("addressbook.bas", "Book.Export", "108", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(record, "Phone"_v, VELT_PROPERTY(contact, "phone"_v));
            VELTS("addressbook.bas", "Book.Export", "109", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(record, "Email"_v, VELT_PROPERTY(contact, "email"_v));
            VELTS("addressbook.bas", "Book.Export", "110", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(record, "Edits"_v, VELT_PROPERTY(contact, "edits"_v));
            VELTS("addressbook.bas", "Book.Export", "111", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(list, VELT_NSMUTABLEARRAY_OBJECT(all, i), record);
        }
        VELTS("addressbook.bas", "Book.Export", "113", "");
        if (VELT_CBOOL(VELT_WRITEDICTIONARY(list, location))) {
            VELTS("addressbook.bas", "Book.Export", "114", "");
            print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("exported "_v, VELT_NSMUTABLEDICTIONARY_COUNT(list)), " to "_v),
                              location));
        } else {
            VELTS("addressbook.bas", "Book.Export", "116", "");
            printError(VELT_CONCAT("addressbook: cannot export to "_v, location));
        }
        return nil;
    }

    id obey(id line) {
        VELTS("addressbook.bas", "Book.Obey", "121", "");
        id words = VELT__NSMUTABLEARRAY(VELT_SPLIT(line, " "_v));
        VELTS("addressbook.bas", "Book.Obey", "122", "");
        id command = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(words, VELT_ID(0L)));
        VELTS("addressbook.bas", "Book.Obey", "123", "");
        id rest = VELT__STRING(VELT_TRIM(VELT_MID(line, VELT_LEN(command), VELT_ID(-1L))));
        VELTS("addressbook.bas", "Book.Obey", "124", "");
        id selector = command;
        if (VELTS("addressbook.bas", "Book.Obey", "125", ""), VELT_CBOOL(VELT_EQUAL(selector, "add"_v))) {
            VELTS("addressbook.bas", "Book.Obey", "126", "");
            add(VELT__NSMUTABLEARRAY(VELT_SPLIT(rest, ";"_v)));
        } else if (VELTS("addressbook.bas", "Book.Obey", "127", ""), VELT_CBOOL(VELT_EQUAL(selector, "remove"_v))) {
            VELTS("addressbook.bas", "Book.Obey", "128", "");
            remove(VELT__STRING(rest));
        } else if (VELTS("addressbook.bas", "Book.Obey", "129", ""), VELT_CBOOL(VELT_EQUAL(selector, "list"_v))) {
            VELTS("addressbook.bas", "Book.Obey", "130", "");
            list(VELT__STRING(""_v));
        } else if (VELTS("addressbook.bas", "Book.Obey", "131", ""), VELT_CBOOL(VELT_EQUAL(selector, "find"_v))) {
            VELTS("addressbook.bas", "Book.Obey", "132", "");
            list(VELT__STRING(rest));
        } else if (VELTS("addressbook.bas", "Book.Obey", "133", ""), VELT_CBOOL(VELT_EQUAL(selector, "export"_v))) {
            VELTS("addressbook.bas", "Book.Obey", "134", "");
            exportTo(VELT__STRING(location(rest)));
        } else {
            VELTS("addressbook.bas", "Book.Obey", "136", "");
            printError(
                VELT_CONCAT(VELT_CONCAT("addressbook: what is "_v, command), "? (add, remove, list, find, export)"_v));
        }
        return nil;
    }

    static void describe(velt::ClassBuilder<Book>& c) {
        c.property("path", &Book::path).property("contacts", &Book::contacts).method("obey:", &Book::obey);
    }
};

int program(int count, char** values) {
    id arguments = argumentList(count, values);
    VELTS("addressbook.bas", "Main", "142", "");
    velt::Ref<Book> book = velt::make<Book>();
    VELTS("addressbook.bas", "Main", "143", "");
    id path = VELT__STRING(VELT_CONCAT(
        VELT_CONCAT(VELT_CONCAT(VELT_USER_TEMPORARYDIRECTORY(nil), "addressbook-"_v), VELT_USER_USERNAME(nil)),
        ".archive"_v));
    VELTS("addressbook.bas", "Main", "144", "");
    id commands = VELT__STRING(VELT_CONCAT(velt::string(VELT_EXAMPLE_FOLDER), "/commands.txt"_v));
    VELTS("addressbook.bas", "Main", "145", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
        VELTS("addressbook.bas", "Main", "146", "");
        path = VELT__STRING(location(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L))));
        VELTS("addressbook.bas", "Main", "147", "");
        commands = VELT__STRING(""_v);
    }
    VELTS("addressbook.bas", "Main", "149", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(1L)))) {
        VELTS("addressbook.bas", "Main", "150", "");
        commands = VELT__STRING(location(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(1L))));
    }
    try {
        VELTS("addressbook.bas", "Main", "153", "");
        book->open(VELT__STRING(path));
    } catch (const NSException& failure) {
        VELTS("addressbook.bas", "Main", "155", "");
        printError(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("addressbook: "_v, path), " is no address book: "_v),
                               velt::string(failure.reason())));
        VELTS("addressbook.bas", "Main", "156", "");
        return 1;
    }
    VELTS("addressbook.bas", "Main", "158", "");
    if (VELT_CBOOL(VELT_EQUAL(commands, ""_v))) {
        VELTS("addressbook.bas", "Main", "159", "");
        id line = readLine();
        while (VELTS("addressbook.bas", "Main", "160", ""), VELT_CBOOL(VELT_UNEQUAL(line, nil))) {
            VELTS("addressbook.bas", "Main", "161", "");
            if (VELT_CBOOL(VELT_UNEQUAL(VELT_TRIM(line), ""_v))) {
                VELTS("addressbook.bas", "Main", "162", "");
                book->obey(VELT__STRING(VELT_TRIM(line)));
            }
            VELTS("addressbook.bas", "Main", "164", "");
            line = readLine();
        }
        VELTS("addressbook.bas", "Main", "166", "");
        return 0;
    }
    VELTS("addressbook.bas", "Main", "168", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_READSTRING(commands), VELT_CHARACTER(VELT_ID(10L))));
    VELTS("addressbook.bas", "Main", "169", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("addressbook.bas", "Main", "170", "");
        if (VELT_CBOOL(VELT_UNEQUAL(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), ""_v))) {
            VELTS("addressbook.bas", "Main", "171", "");
            book->obey(VELT__STRING(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, i))));
        }
    }
    VELTS("addressbook.bas", "Main", "174", "");
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
