#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "inp_Exceptions.h"

TEST(Exceptions, MessageTexts) {
    const cow_String f("deck.inp");
    inp_InvalidParameterValueException badValue("type", "C3X8");
    struct Case {
        std::unique_ptr<nex_Exception> e;
        const char* text;
    };
    Case cases[] = {
        {std::make_unique<inp_KeywordException>(3, f, atr_String("plain text")), "plain text"},
        {std::make_unique<inp_InvalidContinuationLineException>(3, f, atr_String("cont")), "cont"},
        {std::make_unique<inp_EncryptionException>(3, f, atr_String("enc")), "enc"},
        {std::make_unique<inp_NoInputParameterException>(3, f), "Missing input parameter"},
        {std::make_unique<inp_MissingIncludeFileException>(3, f, "a.inp"), "Include file \"a.inp\" does not exist."},
        {std::make_unique<inp_UnreadableIncludeFileException>(3, f, "a.inp"), "Input file \"a.inp\" is unreadable."},
        {std::make_unique<inp_CircularIncludeFileException>(3, f, "a.inp"),
         "Include file \"a.inp\" has already been included."},
        {std::make_unique<inp_ParameterizedIncludeFileException>(3, f, "<x>.inp"),
         "Include file \"<x>.inp\" name is parameterized and not substituted."},
        {std::make_unique<inp_UnknownKeywordException>(3, f, "nodefoo"),
         "Unknown keyword \"nodefoo\". The keyword may be misspelled, obsolete, or invalid."},
        {std::make_unique<inp_AmbiguousKeywordException>(3, f, "conta"), "Ambiguous keyword definition \"conta\"."},
        {std::make_unique<inp_ParameterException>(atr_String("p")), "p"},
        {std::make_unique<inp_InvalidParameterException>("elst=A"),
         "Invalid parameter: elst=A. The parameter may be misspelled, obsolete, or invalid."},
        {std::make_unique<inp_InvalidParameterValueException>(badValue),
         "Invalid value \"C3X8\" for parameter \"type\". The value may be misspelled, obsolete, or invalid."},
        {std::make_unique<inp_MissingEndQuoteException>("name=\"a b"),
         "Missing end quote in parameter data \"name=\"a b\"."},
        {std::make_unique<inp_MemoryException>(),
         "Memory allocation error. Insufficient physical memory or swap space."},
        {std::make_unique<inp_KeywordParameterException>(3, f, "element", badValue),
         "Problem when parsing keyword: element     Invalid value \"C3X8\" for parameter \"type\". The value may "
         "be misspelled, obsolete, or invalid."},
    };
    for (const Case& c : cases) EXPECT_EQ(c.e->UserReport(), c.text) << c.text;
}

// Raised or copied through a base reference, an exception keeps its class and fields.
TEST(Exceptions, PropagateAndCopyKeepTheClass) {
    inp_CircularIncludeFileException original(9, "main.inp", "sub.inp");
    const nex_Exception& base = original;
    try {
        base.Propagate();
    } catch (const inp_CircularIncludeFileException& e) {
        EXPECT_EQ(e.lineNumber, 9);
        EXPECT_EQ(e.fileName, "main.inp");
        EXPECT_EQ(e.UserReport(), "Include file \"sub.inp\" has already been included.");
    } catch (...) {
        ADD_FAILURE() << "raised as another class";
    }

    std::unique_ptr<nex_Exception> copy(base.Copy());
    EXPECT_NE(dynamic_cast<inp_CircularIncludeFileException*>(copy.get()), nullptr);

    // Throw records the place and raises the true class, caught here by its base.
    try {
        inp_AmbiguousKeywordException(0, "", "und").Throw("here.cpp", 5);
    } catch (const inp_KeywordException& e) {
        EXPECT_NE(dynamic_cast<const inp_AmbiguousKeywordException*>(&e), nullptr);
        EXPECT_STREQ(e.SourceFile(), "here.cpp");
        EXPECT_EQ(e.SourceLine(), 5);
    }
}
