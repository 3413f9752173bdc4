#include "inpM_SurfaceFacet.h"

#include <cctype>

inpM_SurfaceFacet::inpM_SurfaceFacet(const cow_String& faceId) : m_faceNumber(0) {
    cow_String id(faceId);
    id.Trim().ToUpper();
    if (id == "SNEG") {
        m_faceNumber = 1;
        return;
    }
    if (id == "SPOS") {
        m_faceNumber = 2;
        return;
    }
    const char* s = id.c_str();
    int n = id.Length();
    // "S" and at most four digits: no element has thousands of faces, and the
    // bound keeps the number far from overflow.
    if (n < 2 || n > 5 || s[0] != 'S') return;
    int number = 0;
    for (int i = 1; i < n; ++i) {
        if (!std::isdigit(static_cast<unsigned char>(s[i]))) return;
        number = number * 10 + (s[i] - '0');
    }
    m_faceNumber = number;
}
