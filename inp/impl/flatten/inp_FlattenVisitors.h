// The passes that write the references of an assembled deck for a flat one: every node
// and element id becomes the id of the flat model, and every set and surface name the
// flat name of inp_FlatNames. One pass per class of reference, each the small override
// of the fixup base that knows where that class stands.
//
// A reference is read in its scope: inside an *INSTANCE block it names something of
// that instance, elsewhere a scoped reference (`Pump-1.TOP`, `Assembly-1.Pump-1.7`)
// names something of the instance of its last but one segment, and a plain one
// something of the assembly level. The maps handed in must be renumbered already: the
// id maps take the deck's ids to those of the flat model.
#ifndef INP_FLATTENVISITORS_H
#define INP_FLATTENVISITORS_H

#include "inp_FlatNames.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

class inp_FlattenSetVisitor : public inp_SetFixupVisitor {
public:
    // `names` must outlive the visitor.
    inp_FlattenSetVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets, const inpM_IdMap& nodeIds,
                          const inpM_IdMap& elementIds, const inp_ModelParameters& parameters,
                          const inp_FlatNames& names);

protected:
    // An id the model lacks is raised: a flat deck has no scope to keep it in.
    // A name that is no set of the scope is kept; it may be a surface or a word of
    // the keyword's own vocabulary at a position that takes either.
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;

private:
    const inp_FlatNames& m_names;
};

class inp_FlattenSurfaceVisitor : public inp_SurfaceFixupVisitor {
public:
    // `names` must outlive the visitor.
    inp_FlattenSurfaceVisitor(const inpM_SurfaceMap& surfaces, const inp_FlatNames& names);

protected:
    // A name that is no surface of the scope is kept.
    cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assemblyName,
                                  const cow_String& instanceName, const cow_String& partName) const override;

private:
    const inp_FlatNames& m_names;
};

class inp_FlattenOrientationVisitor : public inp_OrientationFixupVisitor {
public:
    // `names` must outlive the visitor; its definitions are added already.
    explicit inp_FlattenOrientationVisitor(const inp_FlatNames& names);

protected:
    // A name that no keyword defines in the scope is kept: a solver's own, or one of the
    // assembly level named from inside an instance.
    cow_String ReplaceOrientationName(const cow_String& name) override;

private:
    const inp_FlatNames& m_names;
};

#endif
