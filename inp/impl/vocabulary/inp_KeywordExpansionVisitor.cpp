#include "inp_KeywordExpansionVisitor.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "inp_DataArray.h"
#include "inp_ElementDataArray.h"
#include "inp_NodeDataArray.h"
#include "inp_Utils.h"
#include "nex_Exception.h"
#include "utl_FilePath.h"

namespace {

const cow_String kName("name");

cow_String Upper(const char* text) {
    cow_String s(text);
    s.ToUpper();
    return s;
}

// The item of a parameter, or null.
const inp_Item* Parameter(const inp_Keyword& keyword, const cow_String& name) {
    return keyword.parameters.Lookup(name);
}

bool IsStringParameter(const inp_Keyword& keyword, const cow_String& name) {
    const inp_Item* item = Parameter(keyword, name);
    return item && item->type == inp_Types::typeString;
}

// Names whose values name files, or which the user spelled for display: their case
// is kept.
bool KeepsCase(inp_KeywordEnm keyword, const char* name) {
    if (!std::strcmp(name, "input") || !std::strcmp(name, "file") || !std::strcmp(name, "datafile") ||
        !std::strcmp(name, "library"))
        return true;
    if ((keyword == inp_kwParameterShapeVariation || keyword == inp_kwDesignShapeVariation) &&
        !std::strcmp(name, "parameter"))
        return true;
    return keyword == inp_kwStep && !std::strcmp(name, "name");
}

// A data line counts as empty when it has no item or one blank item.
bool IsEmptyLine(const inp_DataArray& data, int line) {
    const int items = data.NumberOfItems(line);
    return items == 0 || (items == 1 && data.IsBlank(line, 0));
}

// The first `items` items of a line, joined by commas, as the raw text of a new line.
std::string JoinItems(const inp_DataArray& data, int line, int items) {
    std::string text;
    for (int j = 0; j < items; ++j) {
        if (j) text += ',';
        text += data.AsStringVerbatim(line, j).c_str();
    }
    return text;
}

}  // namespace

inp_KeywordExpansionVisitor::inp_KeywordExpansionVisitor() = default;
inp_KeywordExpansionVisitor::~inp_KeywordExpansionVisitor() = default;

void inp_KeywordExpansionVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword == inp_kwEof) {
        // Nothing in a deck ends it early; a later pass must never dispatch this value.
        AppendError(keyword, atr_raw("The *EOF keyword is not part of the input language; it is ignored."));
        BlankKeyword(keyword);
        return;
    }
    try {
        inp_Visitor::Visit(keyword);
    } catch (const nex_TextException& e) {
        AppendError(keyword, e.UserReport());
        BlankKeyword(keyword);
    }
}

void inp_KeywordExpansionVisitor::DefaultAction(inp_Keyword& keyword) { ApplyRule(keyword); }

void inp_KeywordExpansionVisitor::ApplyRule(inp_Keyword& keyword) { ApplyRule(keyword, keyword.keyword); }

void inp_KeywordExpansionVisitor::ApplyRule(inp_Keyword& keyword, inp_KeywordEnm rowOf) {
    const inp_ExpansionRule* rule = inp_FindExpansionRule(rowOf);
    if (!rule) {
        ExpandParameterNames(keyword, nullptr);
        return;
    }
    for (int i = 0; i < rule->count && keyword.keyword != inp_kwUndefined; ++i) RunStep(rule->steps[i], keyword);
}

void inp_KeywordExpansionVisitor::RunStep(const inp_ExpansionStep& step, inp_Keyword& keyword) {
    using Kind = inp_ExpansionStepKind;
    const cow_String name(step.name ? step.name : "");
    const inp_Item* item = step.name ? Parameter(keyword, name) : nullptr;
    switch (step.kind) {
        case Kind::Names:
            ExpandParameterNames(keyword, step.table);
            break;
        case Kind::Value:
            if (item) ExpandParameterValue(keyword, step.table, name);
            break;
        case Kind::ValueUnlessBool:
            if (item && item->type != inp_Types::typeBool) ExpandParameterValue(keyword, step.table, name);
            break;
        case Kind::ValueUnlessInt:
            if (item && item->type != inp_Types::typeInt) ExpandParameterValue(keyword, step.table, name);
            break;
        case Kind::DataFile:
            if (item) {
                const cow_String file = item->AsString();
                ReadDataFile(file, keyword);
                keyword.parameters.Remove(name);
            }
            break;
        case Kind::Require:
            RequireParameter(keyword, name);
            break;
        case Kind::RequireValue:
            RequireValue(keyword, name);
            break;
        case Kind::Without:
            if (!item || (step.asString && item->type != inp_Types::typeString)) {
                AppendError(keyword, atr_raw(step.text));
                if (step.blank) BlankKeyword(keyword);
            }
            break;
        case Kind::Unsupported:
            if (!step.name || item) ReportUnsupportedInAssembly(keyword, atr_raw(step.text));
            break;
        case Kind::DataValue:
            if (step.line < keyword.data.NumberOfLines() && keyword.data.HasValue(step.line, step.item))
                ExpandDataValue(keyword, step.line, step.item, step.table);
            break;
        case Kind::Call:
            step.call(*this, keyword);
            break;
    }
}

void inp_KeywordExpansionVisitor::ExpandParameterNames(inp_Keyword& keyword, const char* const* names) {
    // Built in one batch: one Insert after another costs the square of the count when
    // many names agree in most bits of the map's tree.
    cow_MapBuilder<inp_Item> expanded;
    cow_ConstMapIterator<cow_String, inp_Item> it(keyword.parameters);
    for (it.First(); !it.IsDone(); it.Next()) {
        const cow_String& given = it.CurrentKey();
        const char* text = given.c_str();
        const int n = given.Length();
        int best = -1;
        int bestLength = -1;
        for (int e = 0; names && names[e]; ++e) {
            const int length = static_cast<int>(std::strlen(names[e]));
            const int m = n < length ? n : length;
            if (std::strncmp(text, names[e], static_cast<size_t>(m)) != 0) continue;
            if (best >= 0 && m == bestLength) {
                AppendError(keyword, atr_Format("Ambiguous parameter: %s", given));
                continue;
            }
            if (m > bestLength) {
                best = e;
                bestLength = m;
                if (m == n) break;
            }
        }
        if (best < 0) {
            AppendError(keyword,
                        atr_Format("Unknown parameter: %s. The parameter may be misspelled, obsolete, or invalid.", given));
            expanded.Insert(given, it.CurrentValue());
            continue;
        }
        const cow_String canonical(names[best]);
        const inp_Item& value = it.CurrentValue();
        if (value.type != inp_Types::typeString) {
            expanded.Insert(canonical, value);
            continue;
        }
        cow_String text2 = value.stringValue;
        if (!KeepsCase(keyword.keyword, names[best])) text2.ToUpper();
        expanded.Insert(canonical, inp_Item(StripBlanks(text2)));
    }
    keyword.parameters = expanded.Build();
}

int inp_KeywordExpansionVisitor::MatchValue(cow_String& result, const char* const* words, const cow_String& value) {
    cow_String wanted(value);
    wanted.ToUpper();
    wanted.Trim(" \t");
    const char* text = wanted.c_str();
    const size_t n = static_cast<size_t>(wanted.Length());
    if (n == 0 || !words) return 0;
    // How far an entry agrees with the value: the shorter of the two, when they agree
    // that far; 0 otherwise.
    auto agreement = [&](const char* word) -> size_t {
        const size_t length = std::strlen(word);
        const size_t m = n < length ? n : length;
        return std::strncmp(text, word, m) == 0 ? m : 0;
    };
    size_t best = 0;
    for (int e = 0; words[e]; ++e) {
        const size_t m = agreement(words[e]);
        if (m == 0) continue;
        if (std::strlen(words[e]) == n) {
            result = cow_String(words[e]);
            return 1;
        }
        if (m > best) best = m;
    }
    if (best == 0) return 0;
    int matches = 0;
    for (int e = 0; words[e]; ++e) {
        if (agreement(words[e]) != best) continue;
        ++matches;
        result = cow_String(words[e]);
    }
    return matches;
}

void inp_KeywordExpansionVisitor::ExpandParameterValue(inp_Keyword& keyword, const char* const* words,
                                                       const cow_String& name) {
    const inp_Item* item = Parameter(keyword, name);
    if (!item) return;
    if (item->type == inp_Types::typeBool) {
        keyword.parameters.Insert(name, inp_Item());
        return;
    }
    const cow_String value = item->AsString();
    cow_String word;
    const int matches = MatchValue(word, words, value);
    if (matches >= 2)
        AppendError(keyword, atr_Format("Ambiguous value \"%1$s\" for parameter \"%2$s\".", value, name));
    else if (matches == 1)
        keyword.parameters.Insert(name, inp_Item(word));
    else
        AppendError(keyword, atr_Format("Illegal value \"%1$s\" for parameter \"%2$s\".  The value may be misspelled, "
                                  "obsolete, or invalid.",
                                  value, name));
}

void inp_KeywordExpansionVisitor::ExpandDataValue(inp_Keyword& keyword, int line, int item,
                                                  const char* const* words) {
    const cow_String value = keyword.data.AsString(line, item);
    cow_String word;
    const int matches = MatchValue(word, words, value);
    if (matches >= 2)
        AppendError(keyword, atr_Format("Ambiguous value \"%1$s\" for data item under keyword \"%2$s\".", value,
                                  keyword.Name()));
    else if (matches == 1)
        keyword.data.Set(line, item, word);
    else
        AppendError(keyword,
                    atr_Format("Illegal value \"%1$s\" for data item under keyword \"%2$s\".", value, keyword.Name()));
}

void inp_KeywordExpansionVisitor::RequireParameter(inp_Keyword& keyword, const cow_String& name) {
    if (!Parameter(keyword, name))
        AppendError(keyword, atr_Format("Parameter %1$s is a required parameter.", Upper(name.c_str())));
}

void inp_KeywordExpansionVisitor::RequireValue(inp_Keyword& keyword, const cow_String& name) {
    const inp_Item* item = Parameter(keyword, name);
    if (item && (item->type == inp_Types::typeBool || item->type == inp_Types::typeNone))
        AppendError(keyword, atr_Format("Parameter %1$s requires a value.", Upper(name.c_str())));
}

void inp_KeywordExpansionVisitor::ReadDataFile(const cow_String& fileName, inp_Keyword& keyword) {
    if (fileName.IsEmpty()) {
        AppendError(keyword, atr_raw("Input file is missing"));
        return;
    }
    utl_FilePath path(fileName, cow_String());
    if (!path.Exists()) {
        path = utl_FilePath(fileName, includeDirectory);
        if (!path.Exists()) {
            AppendError(keyword, atr_Format("Input file \"%s\" does not exist.", fileName));
            return;
        }
    }
    if (!path.IsReadable()) {
        AppendError(keyword, atr_Format("Input file \"%s\" is not readable.", fileName));
        return;
    }
    std::FILE* file = std::fopen(path.AbsolutePathName().c_str(), "rb");
    if (!file) {  // gone since the test above
        AppendError(keyword, atr_Format("Input file \"%s\" is not readable.", fileName));
        return;
    }
    // A byte order mark would make the first line of the file no data line.
    unsigned char mark[3];
    if (std::fread(mark, 1, 3, file) != 3 || mark[0] != 0xEF || mark[1] != 0xBB || mark[2] != 0xBF) std::rewind(file);
    inp_DataArray& data = keyword.data;
    char buffer[256];
    while (std::fgets(buffer, sizeof buffer, file)) {
        size_t length = std::strlen(buffer);
        const bool whole = length > 0 && buffer[length - 1] == '\n';
        if (whole) buffer[--length] = '\0';
        // The rest of an over-long line is dropped, as the deck reader does.
        if (!whole && !std::feof(file))
            for (int c = std::fgetc(file); c != EOF && c != '\n'; c = std::fgetc(file)) {
            }
        if (length >= 2 && buffer[0] == '*' && buffer[1] == '*') continue;
        if (length >= 2 && buffer[0] == '*') {
            AppendError(keyword, atr_Format("Data file \"%1$s\" contains a keyword definition. It must only contain the "
                                      "data required under keyword \"%2$s\". You may use the *INCLUDE keyword "
                                      "instead.",
                                      fileName, keyword.Name()));
            std::fclose(file);
            return;
        }
        data.Append(buffer);
    }
    std::fclose(file);

    int kept = data.NumberOfLines();
    while (kept > 0 && IsEmptyLine(data, kept - 1)) --kept;
    if (kept == data.NumberOfLines()) return;
    inp_DataArray trimmed(new inp_RawDataArrayImpl());
    for (int i = 0; i < kept; ++i) trimmed.Append(JoinItems(data, i, data.NumberOfItems(i)).c_str());
    keyword.data = trimmed;
}

void inp_KeywordExpansionVisitor::TrimDataLines(inp_Keyword& keyword, int limit) {
    const inp_DataArray& data = keyword.data;
    bool tooLong = false;
    for (int i = 0; i < data.NumberOfLines() && !tooLong; ++i) {
        const int items = data.NumberOfItems(i);
        // A trailing comma leaves one empty item behind the last: that line is in order.
        tooLong = items > limit && !(items == limit + 1 && data.IsBlank(i, limit));
    }
    if (!tooLong) return;
    inp_DataArray rebuilt(new inp_RawDataArrayImpl());
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        const int items = data.NumberOfItems(i);
        rebuilt.Append(JoinItems(data, i, items < limit ? items : limit).c_str());
    }
    keyword.data = rebuilt;
    atr_translate t(
        "One or more data lines contain more than %d items (counting those after trailing commas).  The extra "
        "items are deleted.");
    atr_SubstituteFormat(t, 1, limit);
    warnings.Append(inp_Utils::MessageInKeyword(keyword, t.Result()));
}

void inp_KeywordExpansionVisitor::MarkAssemblyDeck() {
    isAssemblyDeck = true;
    if (pendingAssemblyErrors.IsEmpty()) return;
    errors.Append(pendingAssemblyErrors);
    pendingAssemblyErrors = cow_List<atr_String>();
}

void inp_KeywordExpansionVisitor::ReportUnsupportedInAssembly(inp_Keyword& keyword, const atr_String& text) {
    const atr_String message = inp_Utils::MessageInKeyword(keyword, text);
    if (isAssemblyDeck)
        errors.Append(message);
    else
        pendingAssemblyErrors.Append(message);
}

void inp_KeywordExpansionVisitor::BlankKeyword(inp_Keyword& keyword) { keyword = inp_Keyword(); }

void inp_KeywordExpansionVisitor::AppendError(const inp_Keyword& keyword, const atr_String& text) {
    errors.Append(inp_Utils::MessageInKeyword(keyword, text));
}

// The keywords that change the state of the walk. Each runs its row for the tables
// and adds what the row cannot say. None calls the base operation: this pass keeps
// no part, instance or step context of its own.

void inp_KeywordExpansionVisitor::VisitAssembly(inp_Keyword& keyword) {
    MarkAssemblyDeck();
    ApplyRule(keyword);
    if (!IsStringParameter(keyword, kName))
        seriousErrors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("The NAME parameter is required.")));
    instanceNames = cow_List<cow_String>();
}

void inp_KeywordExpansionVisitor::VisitPart(inp_Keyword& keyword) {
    ApplyRule(keyword);
    MarkAssemblyDeck();
    const inp_Item* name = Parameter(keyword, kName);
    if (!name) {
        seriousErrors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Part must have a name.")));
        return;
    }
    if (name->type != inp_Types::typeString) {
        seriousErrors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Part was not assigned a valid name.")));
        return;
    }
    const cow_String part = name->stringValue;
    if (partNames.IsMember(part))
        errors.Prepend(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Part with the name \"%s\" has already been defined in the model.", part)));
    else
        partNames.Prepend(part);
}

void inp_KeywordExpansionVisitor::VisitInstance(inp_Keyword& keyword) {
    MarkAssemblyDeck();
    ApplyRule(keyword);
    if (keyword.HasParameter(cow_String("instance"))) {
        if (keyword.HasParameter(kName))
            AppendError(keyword, atr_raw("Instance name should not be given in the case the instance is to be imported"));
        return;
    }
    const cow_String partKey("part");
    const bool named = IsStringParameter(keyword, kName);
    const bool hasPart = IsStringParameter(keyword, partKey);
    if (!named) seriousErrors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Instance must have a name")));
    if (!hasPart)
        seriousErrors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Instance must refer to a part. ")));
    if (!named || !hasPart) return;
    const cow_String instance = Parameter(keyword, kName)->stringValue;
    const cow_String part = Parameter(keyword, partKey)->stringValue;
    if (instanceNames.IsMember(instance))
        errors.Prepend(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Instance with the name \"%s\" already exists in the assembly.", instance)));
    else if (partNames.IsMember(part))
        instanceNames.Prepend(instance);
    else
        errors.Prepend(
            inp_Utils::MessageInKeyword(keyword, atr_Format("Part with the name \"%s\" has not been defined.", part)));
    instanceToPart.Insert(instance, part);
}

void inp_KeywordExpansionVisitor::VisitStep(inp_Keyword& keyword) {
    ApplyRule(keyword);
    if (keyword.keyword == inp_kwUndefined) return;
    const std::string number = std::to_string(stepCount + 1);
    const inp_Item* given = Parameter(keyword, kName);
    cow_String name;
    if (!given) {
        name = cow_String(("Step-" + number).c_str());
        keyword.parameters.Insert(kName, inp_Item(name));
        stepNames.Append(name);
    } else {
        name = given->AsString();
        if (stepNames.IsMember(name)) {
            errors.Prepend(inp_Utils::MessageInKeyword(
                keyword, atr_Format("Step with the name \"%s\" has already been defined.", name)));
            name = cow_String((std::string(name.c_str()) + "-Duplicate-" + number).c_str());
            keyword.parameters.Insert(kName, inp_Item(name));
        } else {
            stepNames.Append(name);
        }
    }
    stepName = name;
    ++stepCount;
}

void inp_KeywordExpansionVisitor::VisitRestart(inp_Keyword& keyword) {
    // Read ahead of the names: only the full names count here.
    if (keyword.HasParameter(cow_String("read"))) {
        if (const inp_Item* step = Parameter(keyword, cow_String("step"))) {
            if (step->type == inp_Types::typeInt)
                stepCount = step->intValue;
            else
                AppendError(keyword, atr_raw("step parameter must be an integer"));
        } else {
            stepCount = defaultRestartStep;
        }
        const inp_Item* inc = Parameter(keyword, cow_String("inc"));
        if (inc && inc->type != inp_Types::typeInt) AppendError(keyword, atr_raw("inc parameter must be an integer"));
    }
    ApplyRule(keyword);
}

void inp_KeywordExpansionVisitor::VisitParameter(inp_Keyword&) { hasParameters = true; }

void inp_KeywordExpansionVisitor::VisitDynamic(inp_Keyword& keyword) {
    ApplyRule(keyword);
    if (keyword.HasParameter(cow_String("explicit"))) hasExplicitDynamic = true;
}

void inp_KeywordExpansionVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    ApplyRule(keyword);
    hasRigidSurface = true;
}

void inp_KeywordExpansionVisitor::VisitElement(inp_Keyword& keyword) {
    ApplyRule(keyword);
    if (keyword.HasParameter(cow_String("file"))) {
        hasElementFile = true;
        return;
    }
    if (keyword.keyword == inp_kwUndefined) return;
    // A part's connectivity stays in its keywords beside the element table that the
    // model is built into: when it is nothing but plain ids it is packed, in a little
    // over half the memory of its text. Lines with anything a message would have to
    // quote as written stay raw, and every pass reads both forms alike. A flat deck's
    // conversion lets go of its lines as it reads them, and reads text as fast as it
    // would pack it.
    if (isAssemblyDeck && inp_ElementDataArrayImpl::PacksExactly(keyword.data))
        keyword.data = inp_DataArray(new inp_ElementDataArrayImpl(keyword.data, true));
}

void inp_KeywordExpansionVisitor::VisitNmap(inp_Keyword& keyword) {
    ApplyRule(keyword);
    if (keyword.keyword == inp_kwUndefined) return;
    const inp_Item* type = Parameter(keyword, cow_String("type"));
    if (type && type->AsString() == "BLENDED") hasBlendedNmap = true;
}

void inp_KeywordExpansionVisitor::VisitNode(inp_Keyword& keyword) {
    ApplyRule(keyword);
    if (keyword.keyword == inp_kwUndefined) return;
    // The one place node data is packed: every later pass reads labels and coordinates
    // from it. A bad label or coordinate raises, and Visit reports it and drops the
    // keyword, so the raw lines can go as they are packed.
    keyword.data = inp_DataArray(new inp_NodeDataArrayImpl(keyword.data, true));
}
