#include "nex_Exception.h"

#include <exception>

namespace {
unsigned g_nextSerial = 0;  // per-object ids; exceptions belong to one thread
}

nex_Exception::nex_Exception() : m_file(""), m_line(0), m_uid{"nex_Exception", ++g_nextSerial} {}
nex_Exception::nex_Exception(const nex_Exception& o) : m_file(o.m_file), m_line(o.m_line), m_uid(o.m_uid) {}
nex_Exception::~nex_Exception() = default;

atr_String nex_Exception::DeveloperReport() const {
    atr_String out(m_file);
    out.append(":").append(cow_String(m_line)).append(": ").append(UserReport());
    return out;
}

atr_String nex_Exception::UserReport() const { return atr_String("Unknown exception"); }
atr_String nex_Exception::AsString() const { return UserReport(); }
void nex_Exception::Propagate() const { throw *this; }
nex_Exception* nex_Exception::Copy() const { return new nex_Exception(*this); }
cls_Uid nex_Exception::DynTypeId() const { return cls_Uid{"nex_Exception", 0}; }

void nex_Exception::Throw(const char* file, int line) {
    m_file = file ? file : "";
    m_line = line;
    Propagate();
    // The compiler cannot see that a virtual Propagate never returns; one that did
    // would break every caller that relies on Throw not coming back.
    std::terminate();
}

atr_String nex_TextException::DeveloperReport() const { return nex_Exception::DeveloperReport(); }

atr_String nex_AssertException::DeveloperReport() const { return nex_Exception::DeveloperReport(); }

atr_String nex_AssertException::UserReport() const {
    atr_String out("Assertion failed: ");
    return out.append(m_condition);
}
