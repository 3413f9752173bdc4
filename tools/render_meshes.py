#!/usr/bin/python3
"""Pictures of the example decks' meshes for docs/: each deck through `inpdeck --vtk`,
the grid rendered offscreen by VTK (Debian: python3-vtk9, for /usr/bin/python3),
coloured by instance, edges drawn.

usage: tools/render_meshes.py [INPDECK] [OUTDIR]   (defaults: build/inpdeck, docs)"""
import glob
import os
import subprocess
import sys
import tempfile

import vtk


def render(vtu, png):
    reader = vtk.vtkXMLUnstructuredGridReader()
    reader.SetFileName(vtu)
    reader.Update()
    grid = reader.GetOutput()
    grid.GetCellData().SetActiveScalars("instance")
    surface = vtk.vtkDataSetSurfaceFilter()
    surface.SetInputData(grid)
    mapper = vtk.vtkDataSetMapper()
    mapper.SetInputConnection(surface.GetOutputPort())
    mapper.SetScalarModeToUseCellData()
    count = max(1, grid.GetFieldData().GetAbstractArray("instance names").GetNumberOfValues() - 1)
    mapper.SetScalarRange(0, count)
    actor = vtk.vtkActor()
    actor.SetMapper(mapper)
    actor.GetProperty().EdgeVisibilityOn()
    actor.GetProperty().SetLineWidth(2.0)
    renderer = vtk.vtkRenderer()
    renderer.AddActor(actor)
    renderer.SetBackground(1.0, 1.0, 1.0)
    window = vtk.vtkRenderWindow()
    window.SetOffScreenRendering(1)
    window.AddRenderer(renderer)
    window.SetSize(640, 400)
    camera = renderer.GetActiveCamera()
    camera.SetPosition(1.0, -1.4, 1.0)
    camera.SetFocalPoint(0.0, 0.0, 0.0)
    camera.SetViewUp(0.0, 0.0, 1.0)
    renderer.ResetCamera()
    window.Render()
    image = vtk.vtkWindowToImageFilter()
    image.SetInput(window)
    writer = vtk.vtkPNGWriter()
    writer.SetFileName(png)
    writer.SetInputConnection(image.GetOutputPort())
    writer.Write()


def main():
    inpdeck = sys.argv[1] if len(sys.argv) > 1 else "build/inpdeck"
    outdir = sys.argv[2] if len(sys.argv) > 2 else "docs"
    examples = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples")
    with tempfile.TemporaryDirectory() as work:
        for deck in sorted(glob.glob(os.path.join(examples, "*.inp"))):
            name = os.path.splitext(os.path.basename(deck))[0]
            vtu = os.path.join(work, name + ".vtu")
            subprocess.run([inpdeck, "--quiet", "--vtk", vtu, deck], check=False, stderr=subprocess.DEVNULL)
            png = os.path.join(outdir, "mesh-%s.png" % name)
            render(vtu, png)
            print(png)


if __name__ == "__main__":
    main()
