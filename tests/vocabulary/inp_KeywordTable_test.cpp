#include <gtest/gtest.h>

#include <cstring>
#include <thread>

#include "inp_Exceptions.h"
#include "inp_KeywordTable.h"

namespace {

const inp_KeywordTable& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

// Outcome of ResolveName as text: the canonical name, or the exception's message.
std::string Resolve(const char* given) {
    try {
        return Table().ResolveName(cow_String(given)).c_str();
    } catch (const inp_UnknownKeywordException& e) {
        return std::string("unknown: ") + e.UserReport().c_str();
    } catch (const inp_AmbiguousKeywordException& e) {
        return std::string("ambiguous: ") + e.UserReport().c_str();
    }
}

std::vector<int> Vec(const cow_1DArrayList<int>& l) {
    std::vector<int> v;
    for (int i = 0; i < l.Count(); ++i) v.push_back(l.ConstGet(i));
    return v;
}

}  // namespace

TEST(KeywordTable, RowsAreCompleteAndConsistent) {
    int rows = 0, withSubs = 0, entries = 0;
    for (const inp_KeywordRow* r = inp_keywordRows; r->name; ++r, ++rows) {
        EXPECT_EQ(Table().Enum(cow_String(r->name)), r->value) << r->name;
        EXPECT_EQ(Table().Name(static_cast<inp_KeywordEnm>(r->value)), r->name);
        if (r->suboptions) {
            ++withSubs;
            for (const int* s = r->suboptions; *s; ++s, ++entries)
                EXPECT_FALSE(Table().Name(static_cast<inp_KeywordEnm>(*s)).IsEmpty()) << r->name;
        }
    }
    EXPECT_EQ(rows, 472);
    EXPECT_EQ(withSubs, 90);
    EXPECT_EQ(entries, 753);
    EXPECT_EQ(inp_kwUndefined, 0);
    EXPECT_EQ(inp_kwEof, 1);
    EXPECT_EQ(inp_kwParameterDependence, 11101);
}

TEST(KeywordTable, ResolvesExactNamesPrefixesAndAmbiguities) {
    struct Case { const char* given; std::string expected; };
    const Case cases[] = {
        {"contact", "contact"},  // an exact key wins over the longer names it begins
        {"contactpa", "contactpair"},
        {"contactp", "ambiguous: Ambiguous keyword definition \"contactp\"."},
        {"conta", "ambiguous: Ambiguous keyword definition \"conta\"."},
        {"und", "ambiguous: Ambiguous keyword definition \"und\"."},
        {"undef", "undefined keyword"},
        {"", "ambiguous: Ambiguous keyword definition \"\"."},
        {"nodefoo", "unknown: Unknown keyword \"nodefoo\". The keyword may be misspelled, obsolete, or invalid."},
        {"NODE", "unknown: Unknown keyword \"NODE\". The keyword may be misspelled, obsolete, or invalid."},
        {"pre-tension", "pre-tensionsection"},
        {"beamgen", "beamgeneralsection"},
        {"elset", "elset"},
    };
    for (const Case& c : cases) EXPECT_EQ(Resolve(c.given), c.expected) << "given \"" << c.given << "\"";

    // Every prefix of every name, and each with one letter too many: a name is found
    // exactly when one row begins with the text (or equals it), as a walk of the rows says.
    for (const inp_KeywordRow* r = inp_keywordRows; r->name; ++r) {
        const std::string name = r->name;
        for (size_t n = 1; n <= name.size() + 1; ++n) {
            const std::string given = n <= name.size() ? name.substr(0, n) : name + "~";
            int matches = 0, exact = 0, last = 0;
            for (const inp_KeywordRow* o = inp_keywordRows; o->name; ++o) {
                if (given == o->name) exact = o->value;
                if (std::strncmp(o->name, given.c_str(), given.size()) == 0) ++matches, last = o->value;
            }
            const int expected = exact ? exact : matches == 1 ? last : 0;
            ASSERT_EQ(Table().Enum(cow_String(given.c_str())), expected) << given;
        }
    }

    EXPECT_EQ(Table().Enum(cow_String("contactpa")), inp_kwContactPair);
    EXPECT_EQ(Table().Enum(cow_String("conta")), inp_kwUndefined);
    EXPECT_EQ(Table().Enum(cow_String("nodefoo")), inp_kwUndefined);
    EXPECT_EQ(Table().Enum(cow_String("undef")), inp_kwUndefined);
}

TEST(KeywordTable, ResolveRaisesWithoutPlace) {
    try {
        Table().ResolveName(cow_String("zzz"));
        FAIL() << "no exception";
    } catch (const inp_KeywordException& e) {
        EXPECT_EQ(e.lineNumber, 0);
        EXPECT_TRUE(e.fileName.IsEmpty());
    }
}

TEST(KeywordTable, ParentsAndNames) {
    EXPECT_TRUE(Table().ParentKeywords(inp_kwModel).IsEmpty());
    EXPECT_EQ(Table().KeywordEnum2String(cow_1DArrayList<int>()), "");

    std::vector<int> parents = Vec(Table().ParentKeywords(inp_kwFriction));
    std::sort(parents.begin(), parents.end());
    std::vector<int> expected = {inp_kwInterface, inp_kwChangeFriction, inp_kwSurfaceInteraction,
                                 inp_kwIts, inp_kwGap, inp_kwConnectorFriction};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(parents, expected);

    // Every keyword's parents, each once.
    for (const inp_KeywordRow* row = inp_keywordRows; row->name; ++row) {
        std::vector<int> walk;
        for (const inp_KeywordRow* owner = inp_keywordRows; owner->name; ++owner)
            if (Table().Suboptions(static_cast<inp_KeywordEnm>(owner->value)).IsMember(row->value))
                walk.push_back(owner->value);
        std::vector<int> got = Vec(Table().ParentKeywords(static_cast<inp_KeywordEnm>(row->value)));
        std::sort(got.begin(), got.end());
        std::sort(walk.begin(), walk.end());
        walk.erase(std::unique(walk.begin(), walk.end()), walk.end());
        ASSERT_EQ(got, walk) << row->name;
    }

    cow_1DArrayList<int> two;
    two.Append(inp_kwNode);
    two.Append(inp_kwPreTensionSection);
    EXPECT_EQ(Table().KeywordEnum2String(two), "node, pre-tensionsection");

    // Suboption lists keep the order of the table: *ASSEMBLY ends with node, element.
    std::vector<int> assembly = Vec(Table().Suboptions(inp_kwAssembly));
    ASSERT_GE(assembly.size(), 2u);
    EXPECT_EQ(assembly[assembly.size() - 2], inp_kwNode);
    EXPECT_EQ(assembly.back(), inp_kwElement);
}

TEST(KeywordTable, ClosuresAndLevelLists) {
    // Depth first, in list order, with repeats: plastic -> ..., designvariation, ...
    std::vector<int> material = Vec(Table().SuboptionClosure(inp_kwBrittleCracking));
    EXPECT_EQ(material, (std::vector<int>{inp_kwBrittleFailure, inp_kwBrittleShear}));

    std::vector<int> concrete = Vec(Table().SuboptionClosure(inp_kwConcrete));
    EXPECT_EQ(concrete, (std::vector<int>{inp_kwFailureRatios, inp_kwShearRetention, inp_kwTensionStiffening}));

    std::vector<int> model = Vec(Table().ModelLevelKeywords());
    auto has = [](const std::vector<int>& v, int k) { return std::find(v.begin(), v.end(), k) != v.end(); };
    EXPECT_FALSE(has(model, inp_kwAssembly));
    EXPECT_FALSE(has(model, inp_kwPart));
    EXPECT_TRUE(has(model, inp_kwStep));
    EXPECT_TRUE(has(model, inp_kwStatic));      // reached through step
    EXPECT_TRUE(has(model, inp_kwElastic));     // through material
    EXPECT_TRUE(has(model, inp_kwEndAssembly));  // on the first level, not removed

    std::vector<int> assembly = Vec(Table().AssemblyLevelKeywords());
    std::vector<int> part = Vec(Table().PartLevelKeywords());
    EXPECT_FALSE(has(assembly, inp_kwInstance));
    EXPECT_TRUE(has(assembly, inp_kwNode));
    EXPECT_TRUE(has(assembly, inp_kwElement));
    EXPECT_TRUE(has(part, inp_kwNode));
    EXPECT_TRUE(has(part, inp_kwElement));
    EXPECT_TRUE(has(part, inp_kwTransverseShearStiffness));  // under beamsection
    // A keyword reachable by two routes stands twice.
    EXPECT_GT(std::count(part.begin(), part.end(), inp_kwDesignVariation), 1);
}

TEST(KeywordTable, OneTablePerThreadAndTeardown) {
    const inp_KeywordTable* mine = &Table();
    const inp_KeywordTable* other = nullptr;
    int liveInOther = 0;
    std::thread t([&] {
        other = &Table();
        liveInOther = thr_ThreadSingleton<inp_KeywordTable>::LiveCount();
    });
    t.join();
    EXPECT_NE(mine, other);
    EXPECT_GE(liveInOther, 2);
    int live = thr_ThreadSingleton<inp_KeywordTable>::LiveCount();
    thr_ThreadSingleton<inp_KeywordTable>::Destroy();
    EXPECT_FALSE(thr_ThreadSingleton<inp_KeywordTable>::Exists());
    EXPECT_EQ(thr_ThreadSingleton<inp_KeywordTable>::LiveCount(), live - 1);
    EXPECT_EQ(Table().Enum(cow_String("node")), inp_kwNode);  // made anew
}
