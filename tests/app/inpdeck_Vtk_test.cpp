// The VTU from the driver's side: what it leaves out is told in one warning, and a grid
// it cannot write is an error. The grid itself is read back by VTK in
// tests/app/vtu_readback.py.
#include <gtest/gtest.h>

#include "inpdeck_Testing.h"

using inpdeck_test::DriverRun;
using inpdeck_test::Lines;
using inpdeck_test::Quoted;
using inpdeck_test::ReadFile;
using inpdeck_test::RunDriver;
using inpdeck_test::TempDir;

namespace {

TEST(Vtk, ElementsWithoutAShapeAreCountedInOneWarning) {
    TempDir dir;
    const std::string deck = dir.Write("mixed.inp",
                                       "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n"
                                       "*ELEMENT, TYPE=T2D2\n1, 1, 2\n*ELEMENT, TYPE=SPRINGA\n2, 1, 2\n3, 2, 3\n"
                                       "*ELEMENT, TYPE=MASS\n4, 3\n*ELEMENT, TYPE=CPS3\n5, 1, 2, 3\n");
    const std::string vtu = dir / "mixed.vtu";
    DriverRun r = RunDriver(dir, "--quiet --vtk " + Quoted(vtu) + " " + Quoted(deck));
    EXPECT_EQ(r.status, 0) << r.err;
    const std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 2u) << r.err;
    EXPECT_EQ(lines[1], "inpdeck: warning: 3 elements left out of \"" + vtu +
                            "\": no VTK shape for MASS (1), SPRINGA (2)");
    const std::string grid = ReadFile(vtu);
    EXPECT_NE(grid.find("<Piece NumberOfPoints=\"3\" NumberOfCells=\"2\">"), std::string::npos) << grid;

    DriverRun all = RunDriver(dir, "--quiet --vtk " + Quoted(vtu) + " " +
                                       Quoted(dir.Write("line.inp", "*NODE\n1\n2, 1.\n*ELEMENT, TYPE=B21\n1, 1, 2\n")));
    EXPECT_EQ(Lines(all.err).size(), 1u) << all.err;  // the summary line only
    DriverRun unwritable = RunDriver(dir, "--quiet --vtk " + Quoted(dir / "no/such/dir.vtu") + " " + Quoted(deck));
    EXPECT_EQ(unwritable.status, 2);
    EXPECT_NE(unwritable.err.find("inpdeck: cannot write \"" + dir / "no/such/dir.vtu" + "\""), std::string::npos)
        << unwritable.err;
}

}  // namespace
