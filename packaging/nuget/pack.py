#!/usr/bin/env python3
"""Packs a NuGet package where there is no nuget: the files that a nuspec names, and the parts that
the Open Packaging Conventions (ECMA-376-2) ask for.

    pack.py NUSPEC OUT.nupkg FOLDER...

A source in the nuspec is looked for in the folders, in their order."""

import sys
import xml.etree.ElementTree as ElementTree
import zipfile
from pathlib import Path
from xml.sax.saxutils import escape, quoteattr

NUSPEC = "http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd"
OPC = "http://schemas.openxmlformats.org/package/2006"
PROPERTIES = "package/services/metadata/core-properties/properties.psmdcp"
DECLARATION = '<?xml version="1.0" encoding="utf-8"?>\n'
# Equal packages from equal files.
DATE = (1980, 1, 1, 0, 0, 0)


def find(source, folders):
    for folder in folders:
        if (Path(folder) / source).is_file():
            return Path(folder) / source
    sys.exit(f"{source}: in none of {', '.join(map(str, folders))}")


def content_types(names):
    """Names the type of every extension, and of the files without one."""
    rows = ['<Default Extension="rels" ContentType='
            '"application/vnd.openxmlformats-package.relationships+xml"/>',
            '<Default Extension="psmdcp" ContentType='
            '"application/vnd.openxmlformats-package.core-properties+xml"/>']
    known = {".rels", ".psmdcp"}
    for name in names:
        extension = Path(name).suffix
        if not extension:
            rows.append(f'<Override PartName={quoteattr("/" + name)}'
                        ' ContentType="application/octet"/>')
        elif extension not in known:
            known.add(extension)
            rows.append(f'<Default Extension={quoteattr(extension[1:])}'
                        ' ContentType="application/octet"/>')
    return f'{DECLARATION}<Types xmlns="{OPC}/content-types">{"".join(rows)}</Types>'


def relationships(nuspec_name):
    return (f'{DECLARATION}<Relationships xmlns="{OPC}/relationships">'
            '<Relationship Id="R1" Type="http://schemas.microsoft.com/packaging/2010/07/manifest"'
            f' Target="/{nuspec_name}"/>'
            f'<Relationship Id="R2" Type="{OPC}/relationships/metadata/core-properties"'
            f' Target="/{PROPERTIES}"/></Relationships>')


def core_properties(text):
    return (f'{DECLARATION}<coreProperties xmlns="{OPC}/metadata/core-properties"'
            ' xmlns:dc="http://purl.org/dc/elements/1.1/">'
            f'<dc:creator>{escape(text("authors"))}</dc:creator>'
            f'<dc:description>{escape(text("description"))}</dc:description>'
            f'<dc:identifier>{escape(text("id"))}</dc:identifier>'
            f'<version>{escape(text("version"))}</version></coreProperties>')


def main(nuspec, out, *folders):
    ElementTree.register_namespace("", NUSPEC)
    tree = ElementTree.parse(nuspec)
    root = tree.getroot()

    def text(name):
        return root.findtext(f"{{{NUSPEC}}}metadata/{{{NUSPEC}}}{name}")

    files = root.find(f"{{{NUSPEC}}}files")
    payload = {file.get("target"): find(file.get("src"), folders).read_bytes() for file in files}
    root.remove(files)  # a packed nuspec names no sources

    name = f"{text('id')}.nuspec"
    parts = {"_rels/.rels": relationships(name),
             name: ElementTree.tostring(root, "utf-8", xml_declaration=True), **payload,
             PROPERTIES: core_properties(text)}
    parts = {"[Content_Types].xml": content_types(parts), **parts}
    with zipfile.ZipFile(out, "w") as package:
        for part, data in parts.items():
            package.writestr(zipfile.ZipInfo(part, DATE), data, zipfile.ZIP_DEFLATED)


if __name__ == "__main__":
    main(*sys.argv[1:])
