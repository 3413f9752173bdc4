// Exceptions of the library.
//
// Every raise goes through Throw, which records the source place and then raises
// the object through its virtual Propagate, so that it is raised as its true class
// even when the caller holds it by a base reference. A class that derives from
// these adds NEX_EXCEPTION_BODY(Class) to get Propagate, Copy and DynTypeId.
#ifndef NEX_EXCEPTION_H
#define NEX_EXCEPTION_H

#include "atr_String.h"

// Identity of an exception class or object.
struct cls_Uid {
    const char* name = "";
    unsigned serial = 0;
    bool operator==(const cls_Uid& o) const { return name == o.name && serial == o.serial; }
};

class cls_WriteVisitor;

class nex_Exception {
public:
    nex_Exception();
    nex_Exception(const nex_Exception& o);
    nex_Exception& operator=(const nex_Exception& o) = default;
    virtual ~nex_Exception();

    virtual atr_String DeveloperReport() const;
    virtual atr_String UserReport() const;
    virtual atr_String AsString() const;
    [[noreturn]] virtual void Propagate() const;
    virtual nex_Exception* Copy() const;
    virtual cls_Uid DynTypeId() const;
    virtual void DBWrite(cls_WriteVisitor&) const {}

    // Stores the place, then raises the object as its true class. Never returns.
    [[noreturn]] void Throw(const char* file, int line);

    const char* SourceFile() const { return m_file; }
    int SourceLine() const { return m_line; }
    cls_Uid Uid() const { return m_uid; }

protected:
    const char* m_file;
    int m_line;
    cls_Uid m_uid;
};

#define NEX_EXCEPTION_BODY(Class)                                                  \
    [[noreturn]] void Propagate() const override { throw *this; }                  \
    nex_Exception* Copy() const override { return new Class(*this); }              \
    cls_Uid DynTypeId() const override { return cls_Uid{#Class, 0}; }

// An exception with a message: the message is what reaches the error lists.
class nex_TextException : public nex_Exception {
public:
    nex_TextException() = default;
    explicit nex_TextException(const atr_String& message) : m_message(message) {}

    atr_String DeveloperReport() const override;
    atr_String UserReport() const override { return m_message; }
    atr_String AsString() const override { return m_message; }
    NEX_EXCEPTION_BODY(nex_TextException)

    const atr_String& Message() const { return m_message; }

protected:
    atr_String m_message;
    cls_Uid m_textUid;
};

// A failed internal check, built from the text of the condition.
class nex_AssertException : public nex_Exception {
public:
    explicit nex_AssertException(const char* condition) : m_condition(condition ? condition : "") {}
    atr_String DeveloperReport() const override;
    atr_String UserReport() const override;
    atr_String AsString() const override { return atr_String(m_condition); }
    NEX_EXCEPTION_BODY(nex_AssertException)

    const cow_String& Condition() const { return m_condition; }

private:
    cow_String m_condition;
};

// Raises nex_AssertException with the condition text and the place when cond is false.
#define NEX_ASSERT(cond)                                                           \
    do {                                                                           \
        if (!(cond)) nex_AssertException(#cond).Throw(__FILE__, __LINE__);         \
    } while (0)

#endif
