#!/usr/bin/env python3
"""Checks that pages are clean HTML5.

usage: check_html.py FILE...

An independent reader: a page must say everything itself that browsers would put right. Each element is closed, and in
the order in which it was opened; attributes are quoted, known and stand once; what stands in what follows the
standard's content models; nothing is obsolete. Prints a line for each page that is not so, and exits with 1.
"""
import html.entities
import html.parser
import re
import sys

VOID = {"br", "img", "meta", "col", "hr"}
PHRASING = {"a", "b", "i", "u", "s", "sub", "sup", "span", "mark", "br", "img", "object", "code"}
FLOW = PHRASING | {"p", "div", "ul", "ol", "table", "hr", "pre", "blockquote"} | {f"h{level}" for level in range(1, 7)}
CHILDREN = {
    "": {"html"},
    "html": {"head", "body"},
    "head": {"meta", "title", "style"},
    "body": FLOW,
    "div": FLOW,
    "blockquote": FLOW,
    "li": FLOW,
    "td": FLOW,
    "ul": {"li"},
    "ol": {"li"},
    "table": {"tr"},
    "tr": {"td"},
    "title": set(),
    "style": set(),
}
HOLDS_TEXT = PHRASING - VOID | {"p", "pre", "li", "td", "title", "style"} | {f"h{level}" for level in range(1, 7)}
GLOBAL = {"class", "id", "title", "dir", "style", "lang"}
ATTRIBUTES = {
    "a": {"href"},
    "img": {"src", "alt"},
    "object": {"data", "type"},
    "meta": {"charset", "name", "content"},
    "ol": {"start", "type"},
    "li": {"value"},
    "td": {"colspan", "rowspan"},
}
REQUIRED = {"img": {"src", "alt"}, "object": {"data"}, "a": {"href"}}
ATTRIBUTE = re.compile(r"""\s+[^\s"'<>/=]+(?:="[^"<]*")?""")
REFERENCE = re.compile(r"&(#[0-9]+|#[xX][0-9a-fA-F]+|[A-Za-z0-9]+);")


class Fault(Exception):
    pass


def require(condition, reason):
    if not condition:
        raise Fault(reason)


class Checker(html.parser.HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=False)
        self.open = [""]
        self.seen = {}
        self.ids = set()

    def parent(self):
        return self.open[-1]

    def handle_decl(self, declaration):
        require(declaration == "DOCTYPE html", f"the declaration {declaration!r}")
        require(not self.seen, "a declaration within the page")

    def handle_starttag(self, name, attributes):
        self.check_spelling(name)
        allowed = CHILDREN.get(self.parent(), PHRASING)
        require(name in allowed, f"<{name}> in <{self.parent()}>")
        require(name != "a" or "a" not in self.open, "a link in a link")
        self.check_attributes(name, attributes)
        self.seen[name] = self.seen.get(name, 0) + 1
        if name not in VOID:
            self.open.append(name)

    def handle_startendtag(self, name, attributes):
        raise Fault(f"<{name}/> closes itself")

    def handle_endtag(self, name):
        require(self.parent() == name, f"</{name}> in <{self.parent()}>")
        self.open.pop()

    def handle_data(self, data):
        require(not data.strip() or self.parent() in HOLDS_TEXT, f"text in <{self.parent()}>")
        require(not re.search("[\x00-\x08\x0b\x0e-\x1f\x7f]", data), "a control character")
        require(self.parent() == "style" or "<" not in data and "&" not in data, "a sign that is not escaped")

    def handle_entityref(self, name):
        require(name + ";" in html.entities.html5, f"the reference &{name};")
        require(self.parent() in HOLDS_TEXT, f"text in <{self.parent()}>")

    def handle_charref(self, name):
        code = int(name[1:], 16) if name[0] in "xX" else int(name)
        require(code in (9, 10) or 32 <= code < 0xD800 or 0xE000 <= code <= 0x10FFFF, f"the reference &#{name};")
        require(self.parent() in HOLDS_TEXT, f"text in <{self.parent()}>")

    def handle_comment(self, text):
        raise Fault("a comment")

    def handle_pi(self, text):
        raise Fault("a processing instruction")

    def unknown_decl(self, text):
        raise Fault("a section of characters")

    def check_spelling(self, name):
        text = self.get_starttag_text()
        require(text.startswith("<" + name), f"{text} is not in lower case")
        rest = text[1 + len(name):-1]
        require(ATTRIBUTE.sub("", rest) == "", f"the attributes of {text}")
        for reference in re.findall("&[^;]*;?", rest):
            require(REFERENCE.fullmatch(reference), f"{reference} in an attribute")

    def check_attributes(self, name, attributes):
        names = [attribute for attribute, _ in attributes]
        require(len(set(names)) == len(names), f"an attribute of <{name}> stands twice")
        for attribute in names:
            known = attribute in GLOBAL or attribute in ATTRIBUTES.get(name, ()) or attribute.startswith("data-")
            require(known, f"the attribute {attribute} of <{name}>")
        require(REQUIRED.get(name, set()) <= set(names), f"<{name}> lacks an attribute")
        for attribute, value in attributes:
            if attribute == "id":
                require(value and value not in self.ids and not re.search(r"\s", value), f"the id {value!r}")
                self.ids.add(value)
            if attribute in ("colspan", "rowspan"):
                require(1 <= int(value) <= (1000 if attribute == "colspan" else 65534), f"{attribute} {value}")
            if attribute == "dir":
                require(value in ("ltr", "rtl", "auto"), f"the direction {value!r}")

    def finish(self):
        self.close()
        require(self.open == [""], f"<{self.parent()}> is not closed")
        for name in ("html", "head", "body", "title"):
            require(self.seen.get(name) == 1, f"{self.seen.get(name, 0)} elements <{name}>")


def check(page):
    require(page.startswith("<!DOCTYPE html>\n"), "the page does not declare itself")
    require(page.count("<meta charset=\"utf-8\">") == 1, "the page does not say once that it is UTF-8")
    require(page.encode().find(b"<meta charset") < 1024, "the charset comes too late")
    checker = Checker()
    checker.feed(page)
    checker.finish()


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    faults = []
    for path in sys.argv[1:]:
        try:
            with open(path, encoding="utf-8", newline="") as file:
                check(file.read())
        except (Fault, ValueError) as problem:
            faults.append(f"{path}: {problem}")
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main()
