#!/usr/bin/python3
"""The VTU of each example deck, read back by VTK's own reader and compared with the
JSON that the driver writes for the same deck: point and cell counts, cell types,
coordinates, connectivity, ids, instances and the 0/1 array of every set.

usage: vtu_readback.py INPDECK EXAMPLES_DIR WORK_DIR
Needs VTK's Python module (Debian: python3-vtk9, for /usr/bin/python3)."""
import glob
import json
import os
import subprocess
import sys

import vtk


def values(array):
    """The values of a VTK array as a list, without numpy."""
    if array is None:
        return []
    if array.GetNumberOfComponents() == 1:
        return [array.GetValue(i) for i in range(array.GetNumberOfTuples())]
    return [list(array.GetTuple(i)) for i in range(array.GetNumberOfTuples())]

# VTK's cell type for the element types of the decks checked here; None: no shape.
CELL_TYPES = {
    "C3D8": 12, "C3D8R": 12, "DC3D8": 12, "C3D10": 24, "C3D20R": 25, "C3D6": 13, "C3D4": 10,
    "CPS4": 9, "CPS3": 5, "S4R": 9, "S8R": 23, "STRI65": 22,
    "B31": 3, "B32": 21, "T2D2": 3, "SPRINGA": None,
}

# One part with quadratic elements, placed twice, the second copy moved and turned:
# the node order of a three-node beam and the placement are checked here.
PLACED_TWICE = """*PART, NAME=P
*NODE
1, 0., 0., 0.
2, 1., 0., 0.
3, 1., 1., 0.
4, 0., 1., 0.
5, 0., 0., 1.
6, .5, 0., 0.
7, 1., .5, 0.
8, .5, .5, 0.
9, 0., .5, 0.
10, 0., 0., .5
11, .5, 0., .5
12, 2., 0., 0.
13, 3., 0., 0.
*ELEMENT, TYPE=C3D10, ELSET=TET
1, 1, 2, 4, 5, 6, 8, 9, 10, 11, 10
*ELEMENT, TYPE=B32, ELSET=BEAM
2, 2, 12, 13
*ELEMENT, TYPE=SPRINGA
3, 1, 2
*NSET, NSET=BASE
1, 2, 3, 4
*END PART
*ASSEMBLY, NAME=A
*INSTANCE, NAME=FIRST, PART=P
*END INSTANCE
*INSTANCE, NAME=SECOND, PART=P
10., 0., 0.
10., 0., 0., 10., 1., 1., 30.
*END INSTANCE
*ELSET, ELSET=BOTH
FIRST.1, SECOND.2
*END ASSEMBLY
"""


def check(inpdeck, deck, work):
    name = os.path.splitext(os.path.basename(deck))[0]
    vtu, js = os.path.join(work, name + ".vtu"), os.path.join(work, name + ".json")
    subprocess.run([inpdeck, "--quiet", "--vtk", vtu, "--json", js, deck], check=False,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with open(js) as f:
        model = json.load(f)
    reader = vtk.vtkXMLUnstructuredGridReader()
    reader.SetFileName(vtu)
    reader.Update()
    grid = reader.GetOutput()
    problems = []

    def expect(what, got, want):
        if got != want:
            problems.append("%s: %s: got %r, want %r" % (name, what, got, want))

    # The points: scope by scope, ids ascending, in global axes.
    points, where = [], {}
    for k, scope in enumerate(model["scopes"]):
        for node in scope["nodes"]:
            where[(k, node[0])] = len(points)
            points.append(node)
    expect("points", grid.GetNumberOfPoints(), len(points))
    coords = values(grid.GetPoints().GetData()) if points else []
    for i, node in enumerate(points):
        expect("point %d" % i, [float(c) for c in coords[i]], [float(c) for c in node[1:]])
    point_data = grid.GetPointData()
    expect("node ids", values(point_data.GetArray("node id")), [n[0] for n in points])

    # The cells: elements with a VTK shape, scope by scope, ids ascending.
    cells = []
    for k, scope in enumerate(model["scopes"]):
        for element in scope["elements"]:
            if element["type"] not in CELL_TYPES:
                problems.append("%s: element type %s not in the table of this check" % (name, element["type"]))
            elif CELL_TYPES[element["type"]] is not None:
                cells.append((k, element))
    expect("cells", grid.GetNumberOfCells(), len(cells))
    cell_data = grid.GetCellData()
    ids = values(cell_data.GetArray("element id"))
    instances = values(cell_data.GetArray("instance"))
    for i, (k, element) in enumerate(cells):
        cell = grid.GetCell(i)
        want = CELL_TYPES[element["type"]]
        expect("cell %d type" % i, cell.GetCellType(), want)
        nodes = element["nodes"]
        if want == 21:  # the middle node of a three-node beam comes last in VTK
            nodes = [nodes[0], nodes[2], nodes[1]]
        expect("cell %d points" % i, [cell.GetPointId(j) for j in range(cell.GetNumberOfPoints())],
               [where[(k, n)] for n in nodes])
        expect("cell %d id" % i, int(ids[i]), element["id"])
        expect("cell %d instance" % i, int(instances[i]), k)
    names = grid.GetFieldData().GetAbstractArray("instance names")
    expect("instance names", [names.GetValue(i) for i in range(names.GetNumberOfValues())],
           [model["assembly"]] + [s["name"] for s in model["scopes"][1:]])

    # One 0/1 array per set, named "instance.set" in an instance's scope.
    def members(k, scope, s, index, count):
        flags = [0] * count
        parts = [(k, s["ids"])] + [(next(i for i, x in enumerate(model["scopes"]) if x["name"] == inst), v)
                                   for inst, v in s["instances"].items()]
        for at, member_ids in parts:
            for m in member_ids:
                if (at, m) in index:
                    flags[index[(at, m)]] = 1
        return flags

    cell_index = {(k, e["id"]): i for i, (k, e) in enumerate(cells)}
    for kind, data, index, count in (("nodeSets", point_data, where, len(points)),
                                     ("elementSets", cell_data, cell_index, len(cells))):
        for k, scope in enumerate(model["scopes"]):
            for s in scope[kind]:
                array_name = s["name"] if k == 0 else scope["name"] + "." + s["name"]
                array = data.GetArray(array_name)
                if array is None:
                    problems.append("%s: no array %s" % (name, array_name))
                    continue
                got = [int(v) for v in values(array)]
                expect("set " + array_name, got, members(k, scope, s, index, count))
    return problems


def main():
    inpdeck, examples, work = sys.argv[1:4]
    os.makedirs(work, exist_ok=True)
    placed = os.path.join(work, "placed_twice.inp")
    with open(placed, "w") as f:
        f.write(PLACED_TWICE)
    decks = sorted(glob.glob(os.path.join(examples, "*.inp"))) + [placed]
    problems = []
    for deck in decks:
        found = check(inpdeck, deck, work)
        print("%s: %s" % (os.path.basename(deck), "ok" if not found else "%d problems" % len(found)))
        problems += found
    for p in problems[:50]:
        print(p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
