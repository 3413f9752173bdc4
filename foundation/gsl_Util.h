// gsl_Util: geometric constants shared by the whole process.
//
// Reached as omi_Singleton<gsl_Util>::Instance() and never written to.
#ifndef GSL_UTIL_H
#define GSL_UTIL_H

#include "omi_Singleton.h"

#include <cmath>

class gsl_Util {
public:
    // Absolute tolerance on dimensionless quantities: the dot product of two
    // unit axes that should be perpendicular, an angle in degrees that
    // should be zero. Deck numbers are typed with six or seven significant
    // digits, so axes a user means to be perpendicular are off by about
    // 1e-7; a tighter value would reject them, a looser one would let
    // visibly skewed axes pass.
    const double tolerance;

    bool IsNegligible(double value) const { return std::fabs(value) <= tolerance; }

    gsl_Util(const gsl_Util&) = delete;
    gsl_Util& operator=(const gsl_Util&) = delete;

private:
    friend class omi_Singleton<gsl_Util>;
    gsl_Util();
};

#endif
