// The library's public interface: everything a driver or a test needs.
#ifndef INP_H
#define INP_H

#include "atr_String.h"
#include "cow_1DArrayList.h"
#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "omi_Singleton.h"
#include "omi_SetIT.h"
#include "omi_IntTable.h"
#include "omi_BlkBitVect.h"
#include "gsl_Vector.h"
#include "gsl_Util.h"
#include "gsl_StLine.h"
#include "gsl_Point.h"
#include "gsl_Plane.h"
#include "gsl_Matrix.h"
#include "nex_Exception.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

#include "inp_keywords.h"
#include "inp_Deck.h"
#include "inp_DataArray.h"
#include "inp_Exceptions.h"
#include "inp_Item.h"
#include "inp_Keyword.h"
#include "inp_KeywordTable.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "inp_Visitor.h"

#endif
