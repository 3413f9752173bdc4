// The value of the geometric tolerance; see the header for the reasoning.
#include "gsl_Util.h"

gsl_Util::gsl_Util() : tolerance(1.0e-6) {}
