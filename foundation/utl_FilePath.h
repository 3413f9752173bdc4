// A file named by a name and a directory: where include files, data files and the
// results library of an earlier job are looked for.
//
// The directory is put in front of the name with one "/" between; an empty directory
// means the name as it stands, relative to the current directory, and a name that
// begins with "/" stands alone whatever the directory. Only "/" separates directories
// when a path is looked up; FileName also cuts at a backslash, so that a name written
// on another system still gives its base name in messages.
//
// Exists and IsReadable answer for regular files only (symbolic links followed): a
// directory of the same name neither exists nor is readable here, because everything
// that looks for a path wants to read it as a file.
#ifndef UTL_FILEPATH_H
#define UTL_FILEPATH_H

#include "cow_String.h"

class utl_FilePath {
public:
    utl_FilePath() = default;
    utl_FilePath(const cow_String& name, const cow_String& directory);

    void SetFilePath(const cow_String& name, const cow_String& directory);

    bool Exists() const;
    bool IsReadable() const;

    // The name without directories.
    cow_String FileName() const;
    // The path as given: the directory, "/", the name (see above).
    cow_String PathName() const;
    // A canonical absolute path: symbolic links, ".", ".." and repeated "/" resolved, so
    // two paths to one file give the same text. For a path that does not exist, the
    // longest leading part that does is resolved and the rest is tidied by text alone.
    cow_String AbsolutePathName() const;

    const cow_String& Name() const { return m_name; }
    const cow_String& Directory() const { return m_directory; }

private:
    cow_String m_name;
    cow_String m_directory;
};

inline bool operator==(const utl_FilePath& a, const utl_FilePath& b) {
    return a.Name() == b.Name() && a.Directory() == b.Directory();
}
inline bool operator!=(const utl_FilePath& a, const utl_FilePath& b) { return !(a == b); }

#endif
