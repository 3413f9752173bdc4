#include "inp_ModelParameterVisitor.h"

namespace {

void Raise(int& field, int value) {
    if (value > field) field = value;
}

// The parameter's value in upper case, or an empty text when it is absent.
cow_String UpperValue(const inp_Keyword& keyword, const char* name) {
    cow_String key(name);
    if (!keyword.HasParameter(key)) return cow_String();
    cow_String value = keyword.parameters.ConstGet(key).AsString();
    value.ToUpper();
    return value;
}

bool FirstLineHasItem(const inp_Keyword& keyword) {
    return keyword.data.NumberOfLines() > 0 && keyword.data.NumberOfItems(0) > 0;
}

}  // namespace

inp_ModelParameterVisitor::inp_ModelParameterVisitor(inp_ModelParameters& parameters) : m_parameters(&parameters) {}

void inp_ModelParameterVisitor::DefaultAction(inp_Keyword&) {}

void inp_ModelParameterVisitor::VisitAssembly(inp_Keyword&) { m_parameters->hasPartsOrInstances = true; }

void inp_ModelParameterVisitor::VisitPart(inp_Keyword&) { m_parameters->hasPartsOrInstances = true; }

void inp_ModelParameterVisitor::VisitInstance(inp_Keyword& keyword) {
    m_parameters->hasPartsOrInstances = true;
    if (keyword.HasParameter("instance")) m_parameters->hasImportedInstance = true;
}

void inp_ModelParameterVisitor::VisitImport(inp_Keyword&) {
    if (!m_parameters->hasPartsOrInstances) m_parameters->hasLeadingImport = true;
}

void inp_ModelParameterVisitor::VisitStep(inp_Keyword& keyword) {
    inPerturbationStep = keyword.HasParameter("perturbation");
}

void inp_ModelParameterVisitor::VisitStatic(inp_Keyword&) {
    if (!inPerturbationStep) m_parameters->hasGeneralStatic = true;
}

void inp_ModelParameterVisitor::VisitSymmetricModelGeneration(inp_Keyword&) {
    m_parameters->hasSymmetricModelGeneration = true;
}

// Shells with temperatures through the thickness: the DS family of heat transfer shells,
// and S8RT. A bare "DS" names no element.
void inp_ModelParameterVisitor::VisitElement(inp_Keyword& keyword) {
    cow_String type = UpperValue(keyword, "type");
    if ((type.Length() >= 3 && type.StartsWith("DS")) || type == "S8RT") m_parameters->hasThicknessTemperatures = true;
}

void inp_ModelParameterVisitor::VisitDepvar(inp_Keyword& keyword) {
    if (FirstLineHasItem(keyword)) Raise(m_parameters->maxSolutionVariables, keyword.data.AsInt(0, 0));
}

void inp_ModelParameterVisitor::VisitShellGeneralSection(inp_Keyword& keyword) {
    if (keyword.HasParameter("variables"))
        Raise(m_parameters->maxSolutionVariables, keyword.GetParameterAsInt("variables", 0));
}

void inp_ModelParameterVisitor::VisitUserElement(inp_Keyword& keyword) { VisitShellGeneralSection(keyword); }

// The first item of an arbitrary section counts its segments; the temperature points are
// one more.
void inp_ModelParameterVisitor::VisitBeamSection(inp_Keyword& keyword) {
    if (UpperValue(keyword, "temperature") == "VALUES" && UpperValue(keyword, "section") == "ARBITRARY" &&
        FirstLineHasItem(keyword))
        Raise(m_parameters->maxTemperaturePoints, keyword.data.AsInt(0, 0) + 1);
}

void inp_ModelParameterVisitor::VisitShellSection(inp_Keyword& keyword) {
    const inp_DataArray& data = keyword.data;
    const int lines = data.NumberOfLines();
    if (lines < 1) return;
    const bool composite = keyword.HasParameter("composite");
    if (keyword.HasParameter("temperature")) {
        const inp_Item& item = keyword.parameters.ConstGet("temperature");
        if (item.type == inp_Types::typeInt) {
            int points = item.intValue;
            // Each layer adds its intervals; neighbouring layers share their end points.
            if (composite && points > 0) points = (points - 1) * lines + 1;
            Raise(m_parameters->maxTemperaturePoints, points);
        }
    }
    if (composite) {
        int points = 1;
        for (int i = 0; i < lines; ++i) {
            int layer = 3;
            if (data.NumberOfItems(i) > 1 && data.AsInt(i, 1) > 0) layer = data.AsInt(i, 1);
            points += layer - 1;
        }
        Raise(m_parameters->maxSectionPoints, points);
    } else if (data.NumberOfItems(0) > 1) {
        Raise(m_parameters->maxSectionPoints, data.AsInt(0, 1));
    }
}
