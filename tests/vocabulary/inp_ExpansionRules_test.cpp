// Every keyword of the table against its expansion row: the three families, and for
// each keyword that checks its parameters, its full names pass and a bogus one does not.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "inp.h"
#include "inp_KeywordExpansionVisitor.h"

namespace {

// The keywords that take no parameter at all.
const std::set<std::string> kWithoutRow = {
    "acousticflowvelocity", "acousticmedium", "acousticwaveformulation", "baselinecorrection", "bond",
    "bucklingenvelope", "bucklinglength", "bulkviscosity", "caddedmass", "centroid", "connectorconstitutivereference",
    "contactclearanceassignment", "contactexclusions", "contactpropertyassignment", "cycledplastic", "daddedmass",
    "damagestabilization", "deformationplasticity", "designparameter", "detonationpoint", "endassembly",
    "endinstance", "endpart", "endstep", "eoscompaction", "foundation", "gapheatgeneration", "gapradiation", "gel",
    "geostatic", "heading", "heatgeneration", "hourglassstiffness", "hysteresis", "importelset", "importnset",
    "inelasticheatfraction", "jouleheatfraction", "moistureswelling", "molecularweight", "nocompression",
    "notension", "parameterdependence", "plasticaxial", "plasticm1", "plasticm2", "plastictorque",
    "porousbulkmoduli", "porousfailurecriteria", "prestresshold", "randomresponse", "sectionpoints", "shearcenter",
    "simplesheartestdata", "steadystatecriteria", "system", "transverseshearstiffness", "userdefinedfield",
    "useroutputvariables", "wind"};

// The keywords whose parameters stay as the parser read them.
const std::set<std::string> kEmptyRow = {"beamsectiongenerate", "designvalue", "designvariation",
                                         "elementproperties", "endloadcase", "failure",
                                         "incidentwavefluidproperty", "kinematic", "remeshtrigger"};

// Rows that the dispatch never reaches, and *PARAMETER, which the pass does not check.
const std::set<std::string> kNoOperation = {"undefined keyword", "eof", "model", "latentheat", "modalprint",
                                            "parameter"};

int UnknownMessages(const inp_KeywordExpansionVisitor& v) {
    int count = 0;
    for (int i = 0; i < v.errors.Count(); ++i)
        if (std::string(v.errors[i].c_str()).find("Unknown parameter: ") != std::string::npos) ++count;
    return count;
}

const char* const* NamesOf(const inp_ExpansionRule& rule) {
    for (int i = 0; i < rule.count; ++i)
        if (rule.steps[i].kind == inp_ExpansionStepKind::Names) return rule.steps[i].table;
    return nullptr;
}

TEST(ExpansionRules, EveryKeywordBelongsToItsFamily) {
    int withoutRow = 0, emptyRow = 0, withSteps = 0;
    for (const inp_KeywordRow* row = inp_keywordRows; row->name; ++row) {
        const std::string name = row->name;
        if (kNoOperation.count(name)) continue;
        const inp_ExpansionRule* rule = inp_FindExpansionRule(static_cast<inp_KeywordEnm>(row->value));
        if (kWithoutRow.count(name)) {
            EXPECT_EQ(rule, nullptr) << name;
            ++withoutRow;
        } else if (kEmptyRow.count(name)) {
            ASSERT_NE(rule, nullptr) << name;
            EXPECT_EQ(rule->count, 0) << name;
            ++emptyRow;
        } else {
            ASSERT_NE(rule, nullptr) << name;
            EXPECT_GT(rule->count, 0) << name;
            ++withSteps;
        }
    }
    EXPECT_EQ(withoutRow, 60);
    EXPECT_EQ(emptyRow, 9);
    EXPECT_EQ(withSteps, 472 - 6 - 60 - 9);
}

TEST(ExpansionRules, FullNamesPassAndABogusOneIsReported) {
    for (const inp_KeywordRow* row = inp_keywordRows; row->name; ++row) {
        const std::string name = row->name;
        if (kNoOperation.count(name) || kEmptyRow.count(name)) continue;
        const inp_KeywordEnm value = static_cast<inp_KeywordEnm>(row->value);
        const inp_ExpansionRule* rule = inp_FindExpansionRule(value);
        const char* const* names = rule ? NamesOf(*rule) : nullptr;
        if (rule && !names) continue;  // a row that reads no names (conflicts)

        std::set<std::string> seen;
        for (int i = 0; names && names[i]; ++i) EXPECT_TRUE(seen.insert(names[i]).second) << name << " twice: " << names[i];

        inp_KeywordExpansionVisitor v;
        inp_Keyword k(value);
        for (int i = 0; names && names[i]; ++i) k.parameters.Insert(cow_String(names[i]), inp_Item(true));
        k.parameters.Insert(cow_String("zzzbogus"), inp_Item(true));
        v.Visit(k);
        EXPECT_EQ(UnknownMessages(v), 1) << name;
        const std::string upper = cow_String(row->name).ToUpper().c_str();
        EXPECT_TRUE(v.errors.IsMember(atr_String(("in keyword *" + upper +
                                                  " Unknown parameter: zzzbogus. The parameter may be misspelled, "
                                                  "obsolete, or invalid.").c_str())))
            << name;
        if (k.keyword == inp_kwUndefined) continue;  // blanked by a rule of its own
        for (int i = 0; names && names[i]; ++i) {
            // The one entry with a blank only catches an abbreviation; a data file's
            // name leaves the keyword once the file is read.
            const std::string entry = names[i];
            if (entry.find(' ') != std::string::npos || entry == "input") continue;
            EXPECT_TRUE(k.HasParameter(cow_String(names[i]))) << name << " " << entry;
        }
    }
}

}  // namespace
