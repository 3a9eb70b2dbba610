// parser.bas as the translator writes it: a class with fields and methods. What other files of the program see of it.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

class Parser : public NSObject {
    VELT_OBJECT(Parser, NSObject)

public:
    id file, line;

    static void describe(velt::ClassBuilder<Parser>& c) {
        c.property("file", &Parser::file)
            .property("line", &Parser::line)
            .owns(&Parser::text_)
            .owns(&Parser::levels_)
            .owns(&Parser::variables_)
            .method("Prepare:", &Parser::prepare)
            .method("Evaluate::", &Parser::evaluate);
    }

    void prepare(id fileName);
    id evaluate(id source, id number);

private:
    void fail(id reason);
    id peek();
    void skipBlanks();
    void expectEnd();
    void expect(id sign);
    id isDigit(id sign);
    id isNamePart(id sign);
    id takeName();
    id takeOperator(id sign);
    void descend();
    id parseLevel(id level);
    id parseSigned();
    id parsePrimary();
    id parseCall(id name, id start);
    void takeDigits();
    id parseNumber();
    id parseHexadecimal();
    id parseString();

    id text_, position_, depth_, levels_, variables_;
};
