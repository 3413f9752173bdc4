#include "inp_ImportKwdData.h"

#include <cstdio>

#include "inp_Utils.h"
#include "thr_GlobalSingleton.h"
#include "utl_CommandLine.h"

namespace {

const inp_Item* Parameter(const inp_Keyword& keyword, const char* name) {
    return keyword.parameters.Lookup(cow_String(name));
}

cow_String Text(const inp_Keyword& keyword, const char* name, const char* fallback = "") {
    const inp_Item* item = Parameter(keyword, name);
    return item ? item->AsString() : cow_String(fallback);
}

// The four points in the earlier job, with their parameter names.
struct Point {
    const char* parameter;
    const char* upper;
    int inp_ImportKwdData::*field;
};
const Point kPoints[] = {
    {"step", "STEP", &inp_ImportKwdData::step},
    {"increment", "INCREMENT", &inp_ImportKwdData::increment},
    {"interval", "INTERVAL", &inp_ImportKwdData::interval},
    {"iteration", "ITERATION", &inp_ImportKwdData::iteration},
};

atr_String Ignored(const char* upper, const cow_String& value) {
    const cow_String format = cow_String("The \"") + upper + "\" parameter has been already defined. The current value "
                              "\"%1$s\" will be ignored.";
    return atr_Format(format.c_str(), value);
}

cow_String Decimal(int value) {
    char text[16];
    std::snprintf(text, sizeof text, "%d", value);
    return cow_String(text);
}

}  // namespace

bool inp_ImportKwdData::readFromKw(const inp_Keyword& keyword) {
    if (!Parameter(keyword, "referenceconfiguration")) return false;
    switch (keyword.keyword) {
        case inp_kwPart:
            kind = 1;
            componentName = Text(keyword, "part");
            break;
        case inp_kwInstance:
            if (Parameter(keyword, "part")) {
                kind = 1;
                componentName = Text(keyword, "part");
            } else if (Parameter(keyword, "instance")) {
                kind = 2;
                componentName = Text(keyword, "instance");
            } else {
                return false;
            }
            break;
        case inp_kwAssembly:
            kind = 3;
            componentName = Text(keyword, "assembly");
            break;
        default:
            return false;
    }
    isDefined = true;
    const cow_String configuration = Text(keyword, "referenceconfiguration");
    if (configuration == "YES" || configuration == "UPDATED") update = true;
    if (Text(keyword, "state") == "NO") state = false;
    if (Parameter(keyword, "library")) library = Text(keyword, "library");
    for (const Point& point : kPoints)
        if (const inp_Item* item = Parameter(keyword, point.parameter)) this->*point.field = item->AsInt();
    return true;
}

void inp_ImportKwdData::readFromImportKw(const inp_Keyword& keyword, cow_List<atr_String>& messages) {
    isDefined = true;
    if (Text(keyword, "update") == "YES") update = true;
    if (Text(keyword, "state") == "NO") state = false;
    for (const Point& point : kPoints) {
        const inp_Item* item = Parameter(keyword, point.parameter);
        if (!item) continue;
        if (item->AsInt() >= 0) {
            this->*point.field = item->AsInt();
            continue;
        }
        messages.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("The value of \"%1$s\" parameter is not valid. It will be ignored.",
                                cow_String(point.upper))));
    }
}

void inp_ImportKwdData::readLibrary(const inp_Keyword& keyword) {
    if (Parameter(keyword, "library")) library = Text(keyword, "library");
}

bool inp_ImportKwdData::checkAgainstImportKw(const inp_ImportKwdData& other, const inp_Keyword& keyword,
                                             cow_List<atr_String>& messages) const {
    if (!isDefined || !other.isDefined) return true;
    bool same = true;
    // A value not given is named by what it falls back to.
    auto differs = [&](const char* upper, bool given, const char* parameter, const char* fallback) {
        same = false;
        const cow_String value = given ? Text(keyword, parameter) : cow_String(fallback);
        messages.Append(inp_Utils::MessageInKeyword(keyword, Ignored(upper, value)));
    };
    if (update != other.update) differs("UPDATE", Parameter(keyword, "update") != nullptr, "update", "NO");
    if (state != other.state) differs("STATE", Parameter(keyword, "state") != nullptr, "state", "default");
    for (const Point& point : kPoints)
        if (this->*point.field != other.*point.field)
            differs(point.upper, other.*point.field != -1, point.parameter, "default");
    return same;
}

bool inp_ImportKwdData::checkLibrary(const inp_ImportKwdData& other, const inp_Keyword& keyword,
                                     cow_List<atr_String>& messages) const {
    if (library.IsEmpty() || library == other.library) return true;
    messages.Append(inp_Utils::MessageInKeyword(keyword, Ignored("LIBRARY", Text(keyword, "library", "default"))));
    return false;
}

const utl_FilePath& inp_ImportKwdData::getLibraryPath() {
    const cow_String fileName = library + ".odb";
    if (libraryPath.Name() == fileName) return libraryPath;
    const cow_String directory = thr_GlobalSingleton<utl_CommandLine>::Instance().ConstGetValue(cow_String("indir"));
    libraryPath.SetFilePath(fileName, directory);
    return libraryPath;
}

cow_Map<cow_String, inp_Item> inp_ImportKwdData::getImportKwdParameterMap() const {
    cow_Map<cow_String, inp_Item> parameters;
    parameters.Insert(cow_String("update"), inp_Item(cow_String(update ? "YES" : "NO")));
    // One point within the step: the first of increment, interval and iteration given.
    for (int i = 1; i < 4; ++i) {
        const int value = this->*kPoints[i].field;
        if (value == -1) continue;
        parameters.Insert(cow_String(kPoints[i].parameter), inp_Item(Decimal(value)));
        break;
    }
    if (step != -1) parameters.Insert(cow_String("step"), inp_Item(Decimal(step)));
    if (!state) parameters.Insert(cow_String("state"), inp_Item(cow_String("NO")));
    return parameters;
}
