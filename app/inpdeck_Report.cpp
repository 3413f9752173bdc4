#include "inpdeck_Report.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "inpdeck_Model.h"
#include "inpdeck_Text.h"

namespace inpdeck {

namespace {

// Columns two blanks apart; `align` holds 'l' or 'r' for each column.
class Table {
public:
    Table(const char* align, std::vector<std::string> head) : align_(align) { rows_.push_back(std::move(head)); }
    void Add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
    void Print(std::FILE* out) const {
        std::vector<size_t> width(align_.size(), 0);
        for (const auto& row : rows_)
            for (size_t c = 0; c < row.size() && c < width.size(); ++c) width[c] = std::max(width[c], row[c].size());
        for (const auto& row : rows_) {
            std::string line;
            for (size_t c = 0; c < row.size() && c < width.size(); ++c) {
                const std::string pad(width[c] - row[c].size(), ' ');
                line += "  " + (align_[c] == 'r' ? pad + row[c] : row[c] + pad);
            }
            line.erase(line.find_last_not_of(' ') + 1);
            std::fprintf(out, "%s\n", line.c_str());
        }
    }

private:
    std::string align_;
    std::vector<std::vector<std::string>> rows_;
};

std::string Number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", v == 0.0 ? 0.0 : v);  // no "-0"
    return text;
}

// Round-off of the rotation (1e-16 where the deck wrote 0) is shown as 0.
std::string Triple(const double v[3]) {
    const double scale = std::max({1.0, std::fabs(v[0]), std::fabs(v[1]), std::fabs(v[2])});
    std::string text;
    for (int i = 0; i < 3; ++i) text += (i ? " " : "") + Number(std::fabs(v[i]) < 1e-12 * scale ? 0.0 : v[i]);
    return text;
}

std::string ByType(const omi_IntTable<inp_Element>* elements) {
    std::string text;
    for (const auto& type : ElementsByType(elements))
        text += (text.empty() ? "" : ", ") + OneLine(type.first.c_str()) + " " + std::to_string(type.second);
    return text;
}

template <class Holder>
std::vector<std::string> CountsRow(const std::string& scope, const std::string& part, const Holder& h) {
    return {scope,
            part,
            std::to_string(CountNodes(h.nodes)),
            std::to_string(CountElements(h.elements)),
            std::to_string(Count(h.nodeSets)),
            std::to_string(Count(h.elementSets)),
            std::to_string(Count(h.surfaces)),
            ByType(h.elements)};
}

int CountSurfaces(const inp_Deck& deck) {
    int count = deck.assemblySurfaces.assemblyInstanceSurfaces.Count();
    cow_ConstMapIterator<cow_String, inpM_PartInstanceSurfaceMap> it(deck.assemblySurfaces.partInstanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next()) count += it.CurrentValue().Count();
    return count;
}

}  // namespace

ModelCounts CountModel(const inp_Deck& deck) {
    ModelCounts counts;
    counts.parts = static_cast<int>(ModelParts(deck).size());
    for (const Scope& s : ModelScopes(deck)) {
        counts.instances += s.name.IsEmpty() ? 0 : 1;
        counts.nodes += CountNodes(s.nodes);
        counts.elements += CountElements(s.elements);
        counts.nodeSets += Count(s.nodeSets);
        counts.elementSets += Count(s.elementSets);
    }
    counts.surfaces = CountSurfaces(deck);
    return counts;
}

void PrintModelReport(std::FILE* out, const inp_Deck& deck) {
    const std::vector<Scope> scopes = ModelScopes(deck);
    const std::vector<Part> parts = ModelParts(deck);
    const Scope& assembly = scopes.front();
    if (parts.empty() && scopes.size() == 1 && CountNodes(assembly.nodes) == 0 &&
        CountElements(assembly.elements) == 0) {
        std::fprintf(out, "model: none\n");
        return;
    }
    // The assembly's own surfaces are counted in its row beside those of its scope.
    std::vector<std::string> first = CountsRow("assembly", OneLine(AssemblyName(deck).c_str()), assembly);
    first[6] = std::to_string(Count(assembly.surfaces) + deck.assemblySurfaces.assemblyInstanceSurfaces.Count());

    std::fprintf(out, "model:\n");
    Table counts("llrrrrrl", {"scope", "name", "nodes", "elements", "node sets", "element sets", "surfaces", "elements by type"});
    counts.Add(first);
    for (const Part& p : parts) counts.Add(CountsRow("part", OneLine(p.name.c_str()), p));
    for (size_t i = 1; i < scopes.size(); ++i) counts.Add(CountsRow("instance", OneLine(scopes[i].name.c_str()), scopes[i]));
    counts.Print(out);

    if (scopes.size() == 1) return;
    std::fprintf(out, "\n");
    Table placements("llll", {"instance", "part", "translation", "rotation"});
    for (size_t i = 1; i < scopes.size(); ++i) {
        const Scope& s = scopes[i];
        const Placement p = ReadPlacement(s.placement);
        const std::string rotation =
            p.angle == 0.0 ? "none"
                           : Number(p.angle) + " degrees about " + Triple(p.axis) + " through " + Triple(p.point);
        placements.Add({OneLine(s.name.c_str()), OneLine(s.part.c_str()), Triple(p.translation), rotation});
    }
    placements.Print(out);
}

}  // namespace inpdeck
