"""Keyed archives in the shapes of other writers, made with Python's plistlib."""

import datetime
import plistlib
from plistlib import UID


class ForeignArchive:
    """An archive under construction. Nothing is written once that could be written twice."""

    def __init__(self):
        self.objects = ["$null"]
        self.classes = {}
        self.top = {}

    def add(self, value):
        self.objects.append(value)
        return UID(len(self.objects) - 1)

    def record(self, name, *ancestors, **more):
        if name not in self.classes:
            fields = {"$classes": [name, *ancestors, "NSObject"], "$classname": name}
            self.classes[name] = self.add(fields | {f"${key}": value for key, value in more.items()})
        return self.classes[name]

    def object(self, class_name, /, **fields):
        return self.add({"$class": self.record(class_name)} | fields)

    def list(self, *elements, name="NSArray"):
        return self.object(name, **{"NS.objects": list(elements)})

    def dictionary(self, entries, name="NSDictionary"):
        keys = [self.add(key) if isinstance(key, str) else key for key in entries]
        return self.object(name, **{"NS.keys": keys, "NS.objects": list(entries.values())})

    def string(self, text):
        return self.object("NSMutableString", **{"NS.string": text})

    def whole(self):
        return {
            "$version": 100000,
            "$objects": self.objects,
            "$archiver": "NSKeyedArchiver",
            "$top": self.top,
        }

    def block(self, sort_keys=False):
        return plistlib.dumps(self.whole(), fmt=plistlib.FMT_BINARY, sort_keys=sort_keys)

    def in_xml(self):
        """The XML form has no UIDs."""

        def converted(value):
            if isinstance(value, UID):
                return {"CF$UID": value.data}
            if isinstance(value, list):
                return list(map(converted, value))
            if isinstance(value, dict):
                return {key: converted(each) for key, each in value.items()}
            return value

        return converted(self.whole())


def book():
    """A book whose texts are objects, whose lists are immutable and whose dates are bare."""
    archive = ForeignArchive()
    label = archive.object("OVLabel", name=archive.string("Home"), displayName=archive.add("Naïve"))
    name = archive.object("OVObjectPersonName", first=archive.string("Ada"), last=archive.add("Ŵ"))
    birthday = archive.add(datetime.datetime(1815, 12, 10))
    phones = [
        archive.object(
            "OVMutableSingleValue",
            type=6,
            label=label,
            value=archive.object("OVObjectPhone", phoneNumber=archive.add(number)),
        )
        for number in ("1", "2")
    ]
    values = {
        "Name": archive.object("OVMutableSingleValue", type=8, label=label, value=name),
        "Birthday": archive.object("OVMutableSingleValue", type=3, label=UID(0), value=birthday),
        "Phone": archive.object(
            "OVMutableMultipleValue", valueArray=archive.list(*phones), mainValueIndex=1
        ),
    }
    person = archive.object("OVPersonGeneral", ID=archive.string("p"), **values)
    group = archive.object("OVGroupGeneral", title=archive.add("g"), persons=archive.list(person))
    archive.top = {
        "root": archive.object(
            "OVAddressBookGeneral",
            personDic=archive.dictionary({"p": person, "q": person}, "NSMutableDictionary"),
            groupDic=archive.dictionary({"g": group}),
        )
    }
    return archive


def misplaced_objects():
    """Objects of other classes in every field of the library's classes, one of them shared."""
    archive = ForeignArchive()
    shared = archive.object("XYShared", what=archive.add("in many places"))
    number, date = archive.add(5), archive.object("NSDate", **{"NS.time": 1.0})
    texts = archive.list(archive.add("a"), archive.add("b"))
    label = archive.object("OVLabel", name=number, displayName=shared)
    home = archive.object("OVLabel", name=archive.add("Home"), displayName=date)

    def single(datum, label=label, name="OVSingleValue", **more):
        return archive.object(name, type=6, label=label, value=datum, **more)

    address = archive.object("OVObjectAddress", valueDic=texts, countryCode=shared)
    other_address = archive.object(
        "OVObjectAddress",
        valueDic=archive.dictionary({"City": shared}, "NSMutableDictionary"),
        countryCode=number,
    )
    account = archive.object("OVObjectInstantMessage", userName=date, serverName=shared)
    values = {
        "Name": single(archive.object("OVObjectPersonName", first=shared, middle=date, last=texts)),
        "Phone": archive.object(
            "OVMutableMultipleValue",
            valueArray=archive.list(
                single(archive.object("OVObjectPhone", phoneNumber=shared)),
                single(archive.object("OVObjectPhone", phoneNumber=date), label=home),
                single(archive.add("1"), label=shared, name="OVMutableSingleValue"),
                single(shared, label=date, name="OVMutableSingleValue"),
                shared,
            ),
            mainValueIndex=1,
        ),
        "Email": single(archive.object("OVObjectEmail", email=number)),
        "InstantMessage": single(account, name="OVMutableSingleValue"),
        "Address": single(address),
        "Other": single(other_address),
        "Date": archive.object("OVMultipleValue", type=5),
        "URL": archive.object("OVMultipleValue", type=2**32 - 1),
        "RelatedNames": archive.object("OVMutableMultipleValue", valueArray=shared),
        "Note": shared,
        "Company": archive.add("text"),
        "Birthday": archive.object("OVValue", type=7),
    }
    person = archive.object("OVPersonGeneral", ID=shared, **values)
    groups = {
        "g": archive.object("OVGroupGeneral", title=number, subArray=shared, persons=texts),
        "h": archive.object("OVGroupGeneral", title=texts, subArray=date, persons=archive.add("p")),
        "i": person,
    }
    archive.top = {
        "root": archive.list(
            archive.object(
                "OVAddressBookGeneral",
                personDic=archive.dictionary({"p": person, "x": shared}, "NSMutableDictionary"),
                groupDic=archive.dictionary(groups, "NSMutableDictionary"),
            ),
            archive.object("OVAddressBookGeneral", personDic=person, groupDic=shared),
            archive.object("OVAddressBookGeneral", personDic=archive.add("no persons")),
        )
    }
    return archive


def foundation_classes():
    archive = ForeignArchive()
    text = archive.add("http://example.org")
    archive.top = {
        "root": archive.list(
            archive.object("NSURL", **{"NS.base": UID(0), "NS.relative": text}),
            archive.object("NSUUID", **{"NS.uuidbytes": bytes(range(16))}),
            archive.object("NSNull"),
            archive.list(text, text, name="NSSet"),
            archive.object("NSOrderedSet", **{"NS.object.0": text, "NS.object.1": UID(0)}),
            archive.object("NSDate", **{"NS.time": -0.25}),
            archive.object("NSMutableData", **{"NS.data": b"\x00\xff"}),
            archive.add(b"bare data"),
            archive.add(True),
            archive.add(-(2**63)),
            archive.add(2**64 - 1),
            archive.add(1.5),
            name="NSMutableArray",
        )
    }
    return archive


def attributed_texts():
    archive = ForeignArchive()
    font = archive.object("NSFont", NSName=archive.add("Helvetica"), NSSize=12.0, NSfFlags=16)
    bold = archive.dictionary({"NSFont": font})
    plain = archive.dictionary({}, "NSMutableDictionary")
    archive.top = {
        "root": archive.list(
            archive.object("NSAttributedString", NSString=archive.add("all"), NSAttributes=bold),
            archive.object(
                "NSMutableAttributedString",
                NSString=archive.string("two runs"),
                NSAttributes=archive.list(bold, plain, bold),
                NSAttributeInfo=archive.object("NSMutableData", **{"NS.data": b"\x03\0\x05\x01"}),
            ),
        )
    }
    return archive


def repeated_and_unreferenced():
    """Equal texts and class records twice, and objects that nothing refers to."""
    archive = ForeignArchive()
    archive.add("nobody refers to this")
    labels = []
    for _ in range(2):
        record = archive.add({"$classname": "OVLabel", "$classes": ["OVLabel", "NSObject"]})
        labels.append(archive.add({"$class": record, "name": archive.add("Home")}))
    archive.object("XYForgotten", label=labels[0])
    archive.top = {"root": archive.list(*labels, labels[0])}
    return archive


def unknown_classes():
    """Hints, records without ancestry, unkeyed coding, containers inside objects."""
    archive = ForeignArchive()
    named = archive.add({"$classname": "XYNamed"})
    hinted = archive.record("XYHinted", "XYBase", classhints=["XYOld", "XYOlder"])
    first = archive.add({"$class": named, "$0": 5, "$1": archive.add("unkeyed")})
    second = archive.add({"$class": hinted, "in": [{"deep": [first]}, 1.0, b"x", "text"]})
    third = archive.object("XYPlain", when=datetime.datetime(2001, 1, 2), again=second)
    archive.top = {"root": archive.list(first, second, third, first)}
    return archive


def odd_dictionaries():
    archive = ForeignArchive()
    number = archive.add(5)
    text = archive.add("text")
    shared = archive.string("shared key")
    archive.top = {
        "root": archive.list(
            archive.dictionary({number: text, text: number}),
            archive.dictionary({shared: text}, "NSMutableDictionary"),
            archive.dictionary({"null value": UID(0)}),
            archive.dictionary({}),
        )
    }
    return archive


def other_entries_on_top():
    archive = ForeignArchive()
    shared = archive.object("OVLabel", name=archive.add("shared"))
    archive.top = {"first": shared, "second": shared, "number": archive.add(7), "plain": 8}
    return archive


def rings():
    archive = ForeignArchive()
    ring = archive.list()
    archive.objects[ring.data]["NS.objects"] += [ring, archive.object("XYRing", back=ring)]
    archive.top = {"root": ring}
    return archive


def many_objects():
    """More than 65,536 objects: UIDs wider than two bytes."""
    archive = ForeignArchive()
    labels = [archive.object("OVLabel", name=archive.add(str(i))) for i in range(35000)]
    archive.top = {"root": archive.list(*labels)}
    return archive


FOREIGN_ARCHIVES = {
    each.__name__: each
    for each in (
        book,
        foundation_classes,
        attributed_texts,
        repeated_and_unreferenced,
        unknown_classes,
        odd_dictionaries,
        other_entries_on_top,
        rings,
        many_objects,
    )
}
