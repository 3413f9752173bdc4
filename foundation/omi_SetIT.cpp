// Out-of-line destructor: gives the class one home for its vtable.
#include "omi_SetIT.h"

omi_SetIT::~omi_SetIT() = default;
