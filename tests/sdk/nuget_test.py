#!/usr/bin/env python3
"""Packs the NuGet package of a build folder and looks at it as its readers do.

Usage: nuget_test.py CMAKE BUILD_FOLDER VERSION"""

import os
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
import zipfile
from pathlib import Path, PureWindowsPath

CMAKE, BUILD, VERSION = sys.argv[1], Path(sys.argv[2]), sys.argv[3]
WORK = BUILD / "packaging" / "nuget" / "client"
TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"


PROJECT = """<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup><OutDir>out/</OutDir></PropertyGroup>
  <Import Project="PACKAGE/build/native/qmxexif.targets"/>
  <Target Name="PrepareForBuild"/>
  <Target Name="Build" DependsOnTargets="PrepareForBuild"/>
</Project>
"""


def use():
    """Installs the package with NuGet itself and builds a project that refers to it."""
    shutil.rmtree(WORK, ignore_errors=True)
    WORK.mkdir(parents=True)
    environment = {**os.environ, "HOME": str(WORK)}

    def run(*command):
        return subprocess.run(command, cwd=WORK, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, check=False).returncode

    assert run("nuget", "install", "qmxexif", "-Source", str(BUILD), "-OutputDirectory", ".",
               "-NonInteractive") == 0
    (WORK / "client.proj").write_text(PROJECT.replace("PACKAGE", f"qmxexif.{VERSION}"),
                                      encoding="utf-8")
    build = ("xbuild", "/nologo", "/target:Build", "client.proj")
    assert run(*build, "/property:Platform=x64") == 0
    assert (WORK / "out" / "qmxexif.dll").read_bytes()[:2] == b"MZ"
    assert run(*build, "/property:Platform=Win32") != 0


def main():
    subprocess.run([CMAKE, "--build", BUILD, "--target", "nuget"], check=True,
                   stdout=subprocess.DEVNULL)
    with zipfile.ZipFile(BUILD / f"qmxexif.{VERSION}.nupkg") as package:
        assert package.testzip() is None
        parts = {name: package.read(name) for name in package.namelist()}

    # XML is well-formed, every part has a type, every relation leads to a part.
    xml = {name: ElementTree.fromstring(data) for name, data in parts.items()
           if name.endswith((".xml", ".rels", ".nuspec", ".psmdcp", ".targets"))}
    types = xml["[Content_Types].xml"]
    extensions = {row.get("Extension") for row in types.iter(TYPES + "Default")}
    overridden = {row.get("PartName") for row in types.iter(TYPES + "Override")}
    for name in parts.keys() - {"[Content_Types].xml"}:
        assert name.rpartition(".")[2] in extensions or "/" + name in overridden, name
    for relation in xml["_rels/.rels"]:
        assert relation.get("Target")[1:] in parts, relation.get("Target")

    metadata = {element.tag.rpartition("}")[2]: element.text
                for element in xml["qmxexif.nuspec"].iter()}
    assert metadata["version"] == VERSION, metadata
    assert metadata["license"] in parts and metadata["readme"] in parts, metadata
    assert "files" not in metadata

    # What the targets file names lies where it says, as seen from the package's top.
    targets = parts["build/native/qmxexif.targets"].decode("utf-8")
    named = re.findall(r"\$\(QmxexifRoot\)([\w.\\-]+)", targets)
    assert len(named) == 3, named
    for path in named:
        wanted = PureWindowsPath(path).as_posix()
        assert any(name == wanted or name.startswith(wanted + "/") for name in parts), path

    assert parts["runtimes/win-x64/native/qmxexif.dll"][:2] == b"MZ"
    assert b"ExifGetExifInfoEx" in parts["build/native/lib/x64/qmxexif.lib"]
    header = Path(__file__).resolve().parents[2] / "include" / "qmxexif.hpp"
    assert parts["build/native/include/qmxexif.hpp"] == header.read_bytes()


    if shutil.which("nuget") and shutil.which("xbuild"):
        use()
    else:
        print("NuGet and xbuild are not installed: the package is not tried with them")


if __name__ == "__main__":
    main()
