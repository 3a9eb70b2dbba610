#include "functions.h"

#include <cassert>
#include <set>
#include <string>
#include <variant>

namespace calculator {
namespace {

using One = id (*)(const id&);
using Two = id (*)(const id&, const id&);
using Three = id (*)(const id&, const id&, const id&);
using Four = id (*)(const id&, const id&, const id&, const id&);

struct Operator {
    const char* name;
    Two call;
};
constexpr Operator kOperators[] = {
    {"+", VELT_ADD},           {"-", VELT_SUB},         {"*", VELT_MUL},     {"/", VELT_DIV},
    {"\\", VELT_IDIV},         {"mod", VELT_MOD},       {"&", VELT_CONCAT},  {"=", VELT_EQUAL},
    {"<>", VELT_UNEQUAL},      {"<", VELT_SMALLER},     {">", VELT_GREATER}, {"<=", VELT_SMALLEREQUAL},
    {">=", VELT_GREATEREQUAL}, {"and", VELT_AND},       {"or", VELT_OR},     {"xor", VELT_XOR},
    {"andalso", VELT_ANDALSO}, {"orelse", VELT_ORELSE}, {"shl", VELT_SHL},   {"shr", VELT_SHR},
};

struct Function {
    const char* name;
    std::variant<One, Two, Three, Four> call;
};
const Function kFunctions[] = {
    // strings
    {"len", One(VELT_LEN)},
    {"left", Two(VELT_LEFT)},
    {"right", Two(VELT_RIGHT)},
    {"mid", Three(VELT_MID)},
    {"at", Two(VELT_AT)},
    {"instr", Four(VELT_INSTR)},
    {"instrrev", Four(VELT_INSTRREV)},
    {"contains", Three(VELT_CONTAINS)},
    {"count", Three(VELT_COUNT)},
    {"startswith", Three(VELT_STARTSWITH)},
    {"endswith", Three(VELT_ENDSWITH)},
    {"compare", Three(VELT_COMPARE)},
    {"replace", Four(VELT_REPLACE)},
    {"trim", One(VELT_TRIM)},
    {"lcase", One(VELT_LCASE)},
    {"ucase", One(VELT_UCASE)},
    {"unicode", Two(VELT_UNICODE)},
    {"character", One(VELT_CHARACTER)},
    {"hex", One(VELT_HEX)},
    {"split", Two(VELT_SPLIT)},
    {"join", Two(VELT_JOIN)},
    // numbers
    {"abs", One(VELT_ABS)},
    {"sqr", One(VELT_SQR)},
    {"sin", One(VELT_SIN)},
    {"cos", One(VELT_COS)},
    {"tan", One(VELT_TAN)},
    {"atn", One(VELT_ATN)},
    {"exp", One(VELT_EXP)},
    {"ln", One(VELT_LN)},
    {"log10", One(VELT_LOG10)},
    {"int", One(VELT_INT)},
    {"fix", One(VELT_FIX)},
    {"min", Two(VELT_MIN)},
    {"max", Two(VELT_MAX)},
    {"round", Two(VELT_ROUND)},
    {"flip", One(VELT_FLIP)},
    {"not", One(VELT_NOT)},
    {"-", One(VELT_MINUS)},
    // kinds
    {"cstring", One(VELT_CSTRING)},
    {"typename", One(VELT_TYPENAME)},
};

template <class Row, std::size_t N> const Row* rowOf(const Row (&rows)[N], const id& name) {
    const std::string wanted = velt::utf8(VELT_LCASE(name));
    for (const Row& row : rows) {
        if (wanted == row.name) return &row;
    }
    return nullptr;
}

/// Records a place in the calculator's input; the texts of a position live as long as the program.
void recordPlace(const id& file, const id& scope, const id& line) {
    static std::set<std::string> texts;
    const auto kept = [](const id& text) { return texts.insert(velt::utf8(text)).first->c_str(); };
    VELTS(kept(file), kept(scope), kept(line), "");
}

}  // namespace

id argumentCount(id name) {
    const Function* row = rowOf(kFunctions, name);
    return VELT_ID(row ? static_cast<long>(row->call.index()) + 1 : -1L);
}

id applyFunction(id name, id arguments, id file, id line) {
    const Function* row = rowOf(kFunctions, name);
    assert(row);
    recordPlace(file, name, line);
    const auto argument = [&](long index) { return VELT_NSARRAY_OBJECT(arguments, VELT_ID(index)); };
    switch (row->call.index()) {
    case 0: return std::get<One>(row->call)(argument(0));
    case 1: return std::get<Two>(row->call)(argument(0), argument(1));
    case 2: return std::get<Three>(row->call)(argument(0), argument(1), argument(2));
    default: return std::get<Four>(row->call)(argument(0), argument(1), argument(2), argument(3));
    }
}

id applyOperator(id name, id left, id right, id file, id line) {
    const Operator* row = rowOf(kOperators, name);
    assert(row);
    recordPlace(file, name, line);
    return row->call(left, right);
}

void raiseSyntaxError(id file, id line, id reason) {
    recordPlace(file, "Parser"_v, line);
    VELT_EXCEPTION("SyntaxError"_v, reason, nil);
}

}  // namespace calculator
