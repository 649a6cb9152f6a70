#!/usr/bin/env python3
"""Checks the structure of a keyed archive and prints its root as JSON.

usage: check_keyed_archive.py FILE

An independent reader: it shares nothing with the library but the form. An object is printed as a dictionary of its
keys with its class under "$class"; data as {"data": hexadecimal digits}, dates as {"date": seconds}. Exits with 1
and the reason when the archive is not as the platform writes it.
"""
import json
import plistlib
import sys

LEAVES = (str, bytes, bool, int, float)


class Malformed(Exception):
    pass


def require(condition, reason):
    if not condition:
        raise Malformed(reason)


def references_in(value):
    """The UIDs that a value holds, in whatever collections."""
    if isinstance(value, plistlib.UID):
        yield value.data
    elif isinstance(value, dict):
        for contained in value.values():
            yield from references_in(contained)
    elif isinstance(value, list):
        for contained in value:
            yield from references_in(contained)


class Archive:
    def __init__(self, plist):
        require(isinstance(plist, dict), "the property list is no dictionary")
        require(set(plist) == {"$version", "$archiver", "$top", "$objects"}, f"odd keys {sorted(plist)}")
        require(plist["$version"] == 100000, "$version is not 100000")
        require(plist["$archiver"] == "NSKeyedArchiver", "$archiver is not NSKeyedArchiver")
        self.top = plist["$top"]
        self.objects = plist["$objects"]
        require(isinstance(self.top, dict) and isinstance(self.objects, list), "$top or $objects is odd")
        require(self.objects and self.objects[0] == "$null", "object 0 is not $null")
        require(set(self.top) == {"root"}, "the top level holds not just the root")
        self.class_uids = {}

    def check(self):
        for uid, value in enumerate(self.objects[1:], 1):
            self.check_object(uid, value)
        for uid in references_in([self.top, self.objects]):
            require(0 <= uid < len(self.objects), f"reference {uid} is out of range")
        reachable = self.reachable()
        for uid in range(1, len(self.objects)):
            require(uid in reachable, f"nothing refers to object {uid}")

    def check_object(self, uid, value):
        if isinstance(value, LEAVES):
            return
        require(isinstance(value, dict), f"object {uid} is a {type(value).__name__}")
        if "$classname" in value:
            self.check_class(uid, value)
            return
        require(isinstance(value.get("$class"), plistlib.UID), f"object {uid} has no class")
        record = self.objects[value["$class"].data]
        require(isinstance(record, dict) and "$classname" in record, f"the class of object {uid} is none")
        for key in ("NS.objects", "NS.keys"):
            members = value.get(key, [])
            require(all(isinstance(member, plistlib.UID) for member in members), f"object {uid} holds no references")
        if "NS.keys" in value:
            require(len(value["NS.keys"]) == len(value["NS.objects"]), f"object {uid} has keys without values")

    def check_class(self, uid, record):
        name = record["$classname"]
        chain = record.get("$classes")
        require(isinstance(name, str) and isinstance(chain, list), f"class record {uid} is odd")
        require(chain[0] == name and chain[-1] == "NSObject", f"class record {uid} has the chain {chain}")
        require(len(set(chain)) == len(chain), f"class record {uid} names a class twice")
        require(name not in self.class_uids, f"class {name} has two records")
        self.class_uids[name] = uid

    def reachable(self):
        found = set()
        waiting = list(references_in(self.top))
        while waiting:
            uid = waiting.pop()
            if uid not in found:
                found.add(uid)
                waiting.extend(references_in(self.objects[uid]))
        return found

    def decode(self, value, above=()):
        if isinstance(value, plistlib.UID):
            return self.decode_object(value.data, above)
        if isinstance(value, bytes):
            return {"data": value.hex()}
        if isinstance(value, list):
            return [self.decode(member, above) for member in value]
        return value

    def decode_object(self, uid, above):
        if uid == 0:
            return None
        require(uid not in above, f"object {uid} holds itself")
        above = above + (uid,)
        value = self.objects[uid]
        if not isinstance(value, dict):
            return self.decode(value, above)
        chain = self.objects[value["$class"].data]["$classes"]
        if "NSDictionary" in chain:
            return self.decode_dictionary(value, above)
        if "NSArray" in chain:
            return self.decode(value["NS.objects"], above)
        if "NSString" in chain:
            return value["NS.string"]
        if "NSData" in chain:
            return {"data": value["NS.data"].hex()}
        if "NSDate" in chain:
            return {"date": value["NS.time"]}
        decoded = {key: self.decode(member, above) for key, member in value.items() if key != "$class"}
        return {"$class": chain[0], **decoded}

    def decode_dictionary(self, value, above):
        keys = [self.decode(key, above) for key in value["NS.keys"]]
        require(all(isinstance(key, str) for key in keys), "a dictionary has keys that are no texts")
        return dict(zip(keys, self.decode(value["NS.objects"], above)))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], "rb") as file:
        archive = Archive(plistlib.load(file, fmt=plistlib.FMT_BINARY))
    archive.check()
    json.dump(archive.decode(archive.top["root"]), sys.stdout, sort_keys=True)


if __name__ == "__main__":
    try:
        main()
    except (Malformed, plistlib.InvalidFileException) as problem:
        sys.exit(f"{sys.argv[1]}: {problem}")
