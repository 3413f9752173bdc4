// inp_ImportKwdData: one request to import a component of an earlier job.
//
// The request is told in one of two ways: by parameters on the *PART, *INSTANCE or
// *ASSEMBLY being imported (readFromKw), or by an *IMPORT keyword inside the imported
// instance (readFromImportKw). A deck may give the same thing twice; the first value
// stands, and the check operations tell, as messages, which later values are ignored.
// The driver keeps one record per component.
#ifndef INP_IMPORTKWDDATA_H
#define INP_IMPORTKWDDATA_H

#include "atr_String.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_Item.h"
#include "inp_Keyword.h"
#include "utl_FilePath.h"

class inp_ImportKwdData {
public:
    inp_ImportKwdData() = default;

    // From a keyword that carries REFERENCE CONFIGURATION and the other import
    // parameters itself; false, and the record untouched, for any other keyword.
    bool readFromKw(const inp_Keyword& keyword);
    // The results library in the directory of the "indir" command line key, made when
    // the library changed since the last call.
    const utl_FilePath& getLibraryPath();
    // The parameters that an *IMPORT for this record would carry.
    cow_Map<cow_String, inp_Item> getImportKwdParameterMap() const;

    // An *IMPORT keyword; a negative step and its like are reported to `messages` and
    // leave the field as it was.
    void readFromImportKw(const inp_Keyword& keyword, cow_List<atr_String>& messages);
    void readLibrary(const inp_Keyword& keyword);
    // True when `other`, read from `keyword`, gives nothing that differs from this
    // record; each difference is one message, naming the value that will be ignored.
    bool checkAgainstImportKw(const inp_ImportKwdData& other, const inp_Keyword& keyword,
                              cow_List<atr_String>& messages) const;
    bool checkLibrary(const inp_ImportKwdData& other, const inp_Keyword& keyword,
                      cow_List<atr_String>& messages) const;

    // 0 nothing, 1 a part, 2 an instance, 3 an assembly.
    int kind = 0;
    bool update = false;
    bool state = true;
    bool isDefined = false;
    // -1: not given.
    int step = -1;
    int increment = -1;
    int interval = -1;
    int iteration = -1;
    cow_String componentName;
    cow_String library;
    utl_FilePath libraryPath;
};

#endif
