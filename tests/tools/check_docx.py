#!/usr/bin/env python3
"""Checks that Word documents are as the format's schema wants them.

usage: check_docx.py FILE...

An independent reader: a document must be one that a strict word processor opens without mending it. Every part is
well-formed XML with a content type; what is referred to is there; properties stand in their order; tables have their
grid, cells end with a paragraph. Prints a line for each document that is not so, and exits with 1.
"""
import sys
import xml.etree.ElementTree as tree
import zipfile

W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
R = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}"
TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"
RELATIONSHIPS = "{http://schemas.openxmlformats.org/package/2006/relationships}"
ORDER = {
    "rPr": "rStyle rFonts b bCs i iCs caps strike dstrike color spacing position sz szCs highlight u shd vertAlign rtl",
    "pPr": "pStyle keepNext keepLines numPr pBdr shd tabs bidi spacing ind jc outlineLvl rPr",
    "tblPr": "tblStyle tblW tblInd tblBorders shd tblLayout tblCellMar",
    "trPr": "gridBefore gridAfter trHeight",
    "tcPr": "tcW gridSpan vMerge tcBorders shd tcMar vAlign",
    "pBdr": "top left bottom right",
    "tblBorders": "top left bottom right",
    "tcBorders": "top left bottom right",
    "tcMar": "top left bottom right",
    "tbl": "tblPr tblGrid tr",
    "lvl": "start numFmt lvlText lvlJc pPr",
    "lvlOverride": "startOverride lvl",
    "style": "name basedOn next uiPriority semiHidden qFormat pPr rPr tblPr",
    "sectPr": "pgSz pgMar",
}
REPEATED = {"tr"}


class Fault(Exception):
    pass


def require(condition, reason):
    if not condition:
        raise Fault(reason)


def local(element):
    return element.tag.rpartition("}")[2]


def check_order(part, root):
    for element in root.iter():
        name = local(element)
        if not element.tag.startswith(W) or name not in ORDER:
            continue
        order = ORDER[name].split()
        children = [local(child) for child in element]
        require(set(children) <= set(order), f"{part}: {set(children) - set(order)} in {name}")
        places = [order.index(child) for child in children]
        require(places == sorted(places), f"{part}: {children} in {name}")
        for child in set(children) - REPEATED:
            require(children.count(child) == 1, f"{part}: {child} twice in {name}")


def check_tables(root):
    for table in root.iter(W + "tbl"):
        columns = len(table.find(W + "tblGrid"))
        require(columns > 0, "a table without columns")
        for row in table.findall(W + "tr"):
            width = 0
            for path in ("trPr/gridBefore", "trPr/gridAfter"):
                skipped = row.find("/".join(W + name for name in path.split("/")))
                width += int(skipped.get(W + "val")) if skipped is not None else 0
            cells = row.findall(W + "tc")
            require(cells, "a row without cells")
            for cell in cells:
                span = cell.find(f"{W}tcPr/{W}gridSpan")
                width += int(span.get(W + "val")) if span is not None else 1
                require(cell[-1].tag == W + "p", "a cell that ends with no paragraph")
            require(width == columns, f"a row of {width} columns in a table of {columns}")
    body = root.find(W + "body")
    require(body[-1].tag == W + "sectPr" and body[-2].tag == W + "p", "the end of the body")
    for block in [body, *root.iter(W + "tc")]:
        names = [local(child) for child in block]
        require(("tbl", "tbl") not in zip(names, names[1:]), "two tables without a paragraph between them")


def check_lists(root, numbering):
    numbers = {}
    abstract = {}
    if numbering is not None:
        names = [local(child) for child in numbering]
        require(names == sorted(names), "numbers before the lists that they are of")
        for found in numbering.findall(W + "abstractNum"):
            abstract[found.get(W + "abstractNumId")] = {level.get(W + "ilvl") for level in found.findall(W + "lvl")}
        for found in numbering.findall(W + "num"):
            numbers[found.get(W + "numId")] = found.find(W + "abstractNumId").get(W + "val")
    for item in root.iter(W + "numPr"):
        number = item.find(W + "numId").get(W + "val")
        require(number in numbers, f"the list {number}")
        level = item.find(W + "ilvl").get(W + "val")
        require(level in abstract[numbers[number]], f"the level {level} of the list {number}")


def check_relationships(package, parts):
    for part, root in parts.items():
        folder, _, name = part.rpartition("/")
        if not name.endswith(".rels"):
            continue
        folder = folder[: -len("_rels")]
        identifiers = set()
        for relationship in root:
            require(relationship.tag == RELATIONSHIPS + "Relationship", f"{part}: {relationship.tag}")
            require(relationship.get("Id") not in identifiers, f"{part}: an identifier twice")
            identifiers.add(relationship.get("Id"))
            if relationship.get("TargetMode") != "External":
                require(folder + relationship.get("Target") in package.namelist(), f"{part}: a target")
        source = parts.get(folder + name[: -len(".rels")])
        for element in source.iter() if source is not None else ():
            for attribute, value in element.attrib.items():
                require(not attribute.startswith(R) or value in identifiers, f"{part}: the identifier {value}")


def check_types(package, types):
    extensions = {found.get("Extension") for found in types.findall(TYPES + "Default")}
    parts = {found.get("PartName") for found in types.findall(TYPES + "Override")}
    for name in package.namelist():
        require(name == "[Content_Types].xml" or "/" + name in parts or name.rpartition(".")[2] in extensions,
                f"{name} has no type")
    require(parts <= {"/" + name for name in package.namelist()}, "a type of no part")


def check(path):
    with zipfile.ZipFile(path) as package:
        require(package.testzip() is None, "a damaged member")
        names = package.namelist()
        require(len(set(names)) == len(names), "a name twice")
        require(names[0] == "[Content_Types].xml", "the types do not come first")
        parts = {name: tree.fromstring(package.read(name)) for name in names if name.endswith((".xml", ".rels"))}
        check_types(package, parts["[Content_Types].xml"])
        check_relationships(package, parts)
        for part, root in parts.items():
            check_order(part, root)
        body = parts["word/document.xml"]
        check_tables(body)
        check_lists(body, parts.get("word/numbering.xml"))
        styles = {style.get(W + "styleId") for style in parts["word/styles.xml"].iter(W + "style")}
        for name in ("pStyle", "rStyle"):
            for style in body.iter(W + name):
                require(style.get(W + "val") in styles, f"the style {style.get(W + 'val')}")
        pictures = [drawing.get("id") for drawing in body.iter() if local(drawing) == "docPr"]
        require(len(set(pictures)) == len(pictures), "a picture's number twice")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    faults = []
    for path in sys.argv[1:]:
        try:
            check(path)
        except (Fault, tree.ParseError, zipfile.BadZipFile, KeyError, ValueError) as problem:
            faults.append(f"{path}: {problem}")
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main()
