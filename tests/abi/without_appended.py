"""Prints FOUND without the members that structures have at their end beyond those of BASELINE, where that is compatible:
in structures that begin with their size, and in tables of objects."""
import sys
import xml.etree.ElementTree as xml


def structures(tree):
    for structure in tree.iter("class-decl"):
        members = structure.findall("data-member")
        if members and members[0].find("var-decl").get("name") in ("size", "QueryInterface"):
            yield structure, members


baseline, found = (xml.parse(path) for path in sys.argv[1:3])
known = {structure.get("name"): (structure, members) for structure, members in structures(baseline)}
for structure, members in structures(found):
    if structure.get("name") not in known:
        continue
    before, members_before = known[structure.get("name")]
    if len(members) <= len(members_before):
        continue
    for member in members[len(members_before) :]:
        structure.remove(member)
    structure.set("size-in-bits", before.get("size-in-bits"))
found.write(sys.stdout, encoding="unicode")
