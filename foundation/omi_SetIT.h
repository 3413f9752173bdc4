// omi_SetIT: the interface of iterators over sets of integer items.
//
// A walk is First, then CurrentItem and Next until IsDone. Concrete set
// iterators decide the order; callers that need an order say so where they
// construct the iterator.
#ifndef OMI_SETIT_H
#define OMI_SETIT_H

class omi_SetIT {
public:
    virtual ~omi_SetIT();

    virtual void First() = 0;
    virtual bool IsDone() const = 0;
    virtual void Next() = 0;
    virtual int CurrentItem() const = 0;

protected:
    omi_SetIT() = default;
    omi_SetIT(const omi_SetIT&) = default;
    omi_SetIT& operator=(const omi_SetIT&) = default;
};

#endif
