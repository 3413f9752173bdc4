#include <gtest/gtest.h>

#include "atr_String.h"
#include "cow_String.h"

TEST(String, DefaultAndEmptyAreTheSame) {
    cow_String a, b("");
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.Length(), 0);
    EXPECT_EQ(b.Length(), 0);
    ASSERT_NE(a.c_str(), nullptr);
    EXPECT_STREQ(a.c_str(), "");
    EXPECT_GE(a.Find("x"), a.Length());
}

TEST(String, CopiesShareUntilWritten) {
    cow_String a("Node");
    cow_String b = a;
    EXPECT_EQ(a.c_str(), b.c_str());  // one storage
    b.ToUpper();
    EXPECT_EQ(a, "Node");
    EXPECT_EQ(b, "NODE");
    b[0] = 'M';
    EXPECT_EQ(b, "MODE");
    EXPECT_EQ(a, "Node");
}

TEST(String, SearchAndEdit) {
    cow_String s("elset=a, elset=b");
    EXPECT_EQ(s.Find("elset"), 0);
    EXPECT_EQ(s.Find("elset", 1), 9);
    EXPECT_GE(s.Find("nset"), s.Length());
    EXPECT_EQ(s.rfind("elset", 5), 9);
    EXPECT_EQ(s.rfind("elset", 5, 8), 0);
    EXPECT_GE(s.rfind("zz", 2), s.Length());
    EXPECT_EQ(s.Substr(6, 1), "a");
    EXPECT_EQ(s.Substr(15, 100), "b");  // length clamped
    EXPECT_EQ(s.Substr(40, 2), "");

    cow_String t(" a b\t c ");
    EXPECT_EQ(cow_String(t).Trim(), "abc");  // everywhere, not only at the ends
    EXPECT_EQ(cow_String(t).LeftTrim(), "a b\t c ");
    EXPECT_EQ(cow_String(t).RightTrim(), " a b\t c");
    EXPECT_EQ(cow_String("abcabc").Substitute("b", "XY"), "aXYcaXYc");
    EXPECT_EQ(cow_String("abcabc").Substitute("b", "", 1), "acabc");
    EXPECT_EQ(cow_String("abcdef").Erase(1, 2), "adef");
    EXPECT_EQ(cow_String("abc").Erase(0, 0x7fffffff), "");
    EXPECT_EQ(cow_String("ab").append("cdef", 4, 1, 2), "abde");
    cow_String self("xy");
    self.append(self);
    EXPECT_EQ(self, "xyxy");
}

TEST(String, NumbersAndOrder) {
    EXPECT_EQ(cow_String(-42), "-42");
    EXPECT_DOUBLE_EQ(atof(cow_String(0.1).c_str()), 0.1);
    EXPECT_DOUBLE_EQ(atof(cow_String(1.5e300).c_str()), 1.5e300);
    // Bytes compare unsigned: a high byte sorts after ASCII.
    EXPECT_LT(cow_String("Z"), cow_String("\xC3\xA9"));
    EXPECT_LT(cow_String("ab"), cow_String("abc"));
    EXPECT_LT(cow_String("B"), cow_String("a"));
    const char text[] = "borrowed";
    cow_String borrowed(text, 6, cow_String::Borrow);
    EXPECT_EQ(borrowed.Length(), 6);
    cow_String written = borrowed;
    written.ToUpper();  // never writes into the borrowed characters
    EXPECT_STREQ(text, "borrowed");
    EXPECT_EQ(written, "BORROW");
}

TEST(Message, SubstitutionNumberedAndUnnumbered) {
    atr_translate t("Invalid value \"%s\" for parameter \"%s\".");
    atr_SubstituteFormat(t, 1, "X");
    atr_SubstituteFormat(t, 2, cow_String("type"));
    EXPECT_EQ(t.Result(), "Invalid value \"X\" for parameter \"type\".");

    atr_translate n("There are errors in the *%1$s parameters: %2$s (%1$s, %3$d)");
    atr_SubstituteFormat(n, 1, "NODE");
    atr_SubstituteFormat(n, 2, "bad");
    atr_SubstituteFormat(n, 3, 7);
    EXPECT_EQ(n.Result(), "There are errors in the *NODE parameters: bad (NODE, 7)");

    // A placeholder without a value stays as written; trailing and double blanks stay.
    atr_translate keep("a %2$s  b %d ");
    EXPECT_EQ(keep.Result(), "a %2$s  b %d ");

    atr_String m("Problem when parsing keyword: %s     %s");
    m.ReplaceNonTranslated(0, "NODE");
    EXPECT_EQ(m, "Problem when parsing keyword: NODE     %s");
    atr_String k("%2$d of %1$s");
    k.ReplaceNonTranslated(2, 5).ReplaceNonTranslated(1, cow_String("six"));
    EXPECT_EQ(k, "5 of six");
    atr_String marker("ids: <IDS>");
    marker.ReplaceNonTranslated("<IDS>", " 1 2");
    EXPECT_EQ(marker, "ids:  1 2");
    EXPECT_EQ(atr_raw("%s literal"), "%s literal");
}

TEST(String, SelfAssignmentKeepsTheText) {
    cow_String s("keep");
    cow_String& alias = s;
    s = alias;
    EXPECT_EQ(s, "keep");
}
