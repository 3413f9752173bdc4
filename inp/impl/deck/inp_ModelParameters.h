// inp_ModelParameters: the deck-wide numbers and flags that later passes read.
//
// The numbers say how long a data record is when its length follows from the model
// (values per node of a temperature record, solution variables of a material); they
// start at 1 and only ever rise. The flags are only ever set.
#ifndef INP_MODELPARAMETERS_H
#define INP_MODELPARAMETERS_H

struct inp_ModelParameters {
    int maxSolutionVariables = 1;
    int maxTemperaturePoints = 1;
    int maxSectionPoints = 1;
    bool hasSymmetricModelGeneration = false;
    bool hasThicknessTemperatures = false;
    bool hasLeadingImport = false;
    bool hasGeneralStatic = false;
    bool hasImportedInstance = false;
    bool hasPartsOrInstances = false;
};

#endif
