#include "inp_ElementUndefinedNodesError.h"

#include "inpM_Utils.h"

namespace {

atr_String Text(const cow_1DArrayList<int>& ids, const cow_String* instance) {
    if (!instance)
        return inpM_Utils::FormatCollectedErrors(
            atr_translate("The following elements reference one or more nodes that do not exist").Result(), ids);
    atr_translate t("The following elements in instance %s reference one or more nodes that do not exist");
    atr_SubstituteFormat(t, 1, *instance);
    return inpM_Utils::FormatCollectedErrors(t.Result(), ids);
}

}  // namespace

inp_ElementUndefinedNodesError::inp_ElementUndefinedNodesError(const cow_1DArrayList<int>& elementIds)
    : nex_TextException(Text(elementIds, nullptr)), ids(elementIds) {}

inp_ElementUndefinedNodesError::inp_ElementUndefinedNodesError(const cow_1DArrayList<int>& elementIds,
                                                               const cow_String& instance)
    : nex_TextException(Text(elementIds, &instance)), ids(elementIds), instanceName(instance) {}

inp_ElementUndefinedNodesError::~inp_ElementUndefinedNodesError() = default;
