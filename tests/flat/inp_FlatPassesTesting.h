// A flat deck read from disk and walked by the model passes of its conversion, in the
// conversion's order: elements, nodes, the layer nodes of stacked elements, and the
// undefined nodes.
#ifndef INP_FLATPASSESTESTING_H
#define INP_FLATPASSESTESTING_H

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_FakePartModelVisitors.h"
#include "inp_NodeGenerationVisitor.h"
#include "inp_UndefinedNodeVisitor.h"

namespace inp_test {

struct FlatPasses {
    explicit FlatPasses(const std::string& text, bool symmetricModelGeneration = false) {
        path = dir.Write("flat.inp", text);
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        deck.Parse(cow_String(path.c_str()));
        deck.ExpandKeywords();
        parseMessages = SinkRecords();

        inp_FakePartElementVisitor elementPass(inpM_SetMap(), true);
        elementPass.VisitList(deck.keywords);
        inp_FakePartNodeVisitor nodePass(elementPass.elements, elementPass.setMap, inpM_SetMap(), true,
                                         symmetricModelGeneration);
        nodePass.VisitList(deck.keywords);
        inp_NodeGenerationVisitor generation(nodePass.coordMap, elementPass.elements, elementPass.setMap, true, false,
                                             true, cow_String(inp_Types::fakeName()));
        generation.VisitList(deck.keywords);
        for (const inp_Visitor* pass : {static_cast<const inp_Visitor*>(&elementPass),
                                        static_cast<const inp_Visitor*>(&nodePass),
                                        static_cast<const inp_Visitor*>(&generation)}) {
            for (const std::string& text : ToVector(pass->errors)) modelMessages.push_back("E: " + text);
            for (const std::string& text : ToVector(pass->warnings)) modelMessages.push_back("W: " + text);
        }
        elements = elementPass.elements;
        elementSets = elementPass.setMap;
        nodeSets = nodePass.setMap;
        coordinates = generation.coordMap;
        if (symmetricModelGeneration) return;

        inp_UndefinedNodeVisitor undefinedPass(coordinates, deck.modelParameters);
        undefinedPass.VisitList(deck.keywords);
        undefinedPass.AddSetNodes(nodeSets);
        warnings = ToVector(undefinedPass.warnings);
        errors = ToVector(undefinedPass.errors);
        coordinates = undefinedPass.coordinates;
    }

    const inp_CoordMap& Fake() const { return coordinates.instances.ConstGet(cow_String("FAKE")).ConstGet(); }

    // `in keyword *NAME, file "...", line n: text`, as a message about this deck reads.
    std::string At(const char* upperName, int line, const std::string& text) const {
        return "in keyword *" + std::string(upperName) + ", file \"" + path + "\", line " + std::to_string(line) +
               ": " + text;
    }

    TempDir dir;
    std::string path;
    inp_Deck deck;
    std::vector<std::string> parseMessages;
    std::vector<std::string> modelMessages;
    inpM_ElementMap elements;
    inpM_SetMap elementSets;
    inpM_SetMap nodeSets;
    inp_CoordMap coordinates;
    // Of the undefined node pass.
    std::vector<std::string> warnings;
    std::vector<std::string> errors;
};

}  // namespace inp_test

#endif
