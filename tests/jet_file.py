"""Makes database files in the page formats of Jet 3 (Access 97), Jet 4 (Access 2000) and its
successor, for tests of what reads them: tables with rows of all types, definitions of indexes,
relations, default values, long values on pages of their own, rows that were moved or deleted.

    content = jet_file.make([Table("news", [Column("id", LONG, auto=True), ...], rows, indexes)])
"""

import dataclasses
import datetime
import decimal
import struct
import uuid

BOOL, BYTE, SHORT, LONG, MONEY, SINGLE, DOUBLE, DATE, BINARY, TEXT, OLE, MEMO = range(1, 13)
GUID, NUMERIC, LARGE = 15, 16, 19

FIXED_SIZES = {BOOL: 0, BYTE: 1, SHORT: 2, LONG: 4, MONEY: 8, SINGLE: 4, DOUBLE: 8, DATE: 8,
               GUID: 16, LARGE: 8}

JET3, JET4, ACE = 0, 1, 2

LEGACY = {"cp1252": 1252, "cp1251": 1251, "cp936": 936}

DELETED = 0xC000
MOVED = 0x4000
MOVED_HERE = 0x8000


@dataclasses.dataclass
class Column:
    name: str
    type: int
    size: int = 0            # of texts in characters, of binary columns in bytes
    auto: bool = False
    digits: int = 18
    places: int = 4
    default: str = ""


@dataclasses.dataclass
class Index:
    name: str
    columns: list            # names; with "-" in front the order is descending
    primary: bool = False
    unique: bool = False
    foreign: bool = False


@dataclasses.dataclass
class Table:
    name: str
    columns: list
    rows: list
    indexes: list = dataclasses.field(default_factory=list)
    last_number: int = 0
    deleted: list = dataclasses.field(default_factory=list)  # rows that are to be passed over
    moved: list = dataclasses.field(default_factory=list)    # rows that stand on another page
    kind: int = 1            # as the catalog has it; 6: linked to another file


@dataclasses.dataclass
class Relation:
    name: str
    table: str
    columns: list
    other: str
    other_columns: list
    flags: int = 0           # 2: not enforced, 0x100: cascade updates, 0x1000: cascade deletes


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) & 255
        state[i], state[j] = state[j], state[i]
    out = bytearray()
    i = j = 0
    for byte in data:
        i = (i + 1) & 255
        j = (j + state[i]) & 255
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) & 255])
    return bytes(out)


def days_of(moment):
    days = (moment - datetime.datetime(1899, 12, 30)) / datetime.timedelta(days=1)
    if days >= 0:
        return days
    whole = -int(-days // 1)  # before that day the fraction still counts forward
    return days if days == whole else (whole - 1) - (days - (whole - 1))


@dataclasses.dataclass
class Query:
    """Saved under a name; rows of (attribute, flag, expression, name, other name)."""
    name: str
    rows: list


class File:
    def __init__(self, version, charset, password, created):
        self.version = version
        self.old = version == JET3
        self.page_size = 2048 if self.old else 4096
        self.charset = charset
        self.pages = [self._first_page(password, created), bytearray(self.page_size)]
        self.pages[1][0:2] = b"\x01\x01"

    def _first_page(self, password, created):
        page = bytearray(self.page_size)
        page[0:4] = b"\x00\x01\x00\x00"
        name = b"Standard ACE DB\0" if self.version >= ACE else b"Standard Jet DB\0"
        page[4:20] = name
        page[0x14] = self.version
        struct.pack_into("<H", page, 0x3C, LEGACY.get(self.charset, 1252))
        days = days_of(created)
        if self.old:
            page[0x42:0x42 + 20] = password.encode("latin-1").ljust(20, b"\0")
        else:
            struct.pack_into("<d", page, 0x72, days)
            mask = struct.pack("<i", int(days))
            word = password.encode("utf-16-le").ljust(40, b"\0")
            page[0x42:0x42 + 40] = bytes(b ^ mask[i % 4] for i, b in enumerate(word))
        end = 0x18 + (126 if self.old else 128)
        page[0x18:end] = rc4(b"\xC7\xDA\x39\x6B", page[0x18:end])
        return page

    def new_page(self):
        self.pages.append(bytearray(self.page_size))
        return len(self.pages) - 1

    def content(self):
        return b"".join(bytes(page) for page in self.pages)

    def name(self, text):
        encoded = text.encode(self.charset if self.old else "utf-16-le")
        return struct.pack("<B" if self.old else "<H", len(encoded)) + encoded

    def text(self, text):
        if self.old:
            return text.encode(self.charset, "replace")
        plain = text.encode("utf-16-le")
        if len(text) > 2 and all(0 < ord(c) < 256 for c in text):
            return b"\xFF\xFE" + text.encode("latin-1")
        return plain

    def add_row(self, page, row, flags=0):
        """The number of the row on a data page, or None when it has no room."""
        data = self.pages[page]
        at = 8 if self.old else 12
        count = struct.unpack_from("<H", data, at)[0]
        end = self.page_size
        if count:
            end = struct.unpack_from("<H", data, at + 2 * count)[0] & 0x1FFF
        start = end - len(row)
        if start < at + 2 + 2 * (count + 1) or count >= 255:
            return None
        data[start:end] = row
        struct.pack_into("<H", data, at + 2 + 2 * count, start | flags)
        struct.pack_into("<H", data, at, count + 1)
        struct.pack_into("<H", data, 2, start - at - 2 - 2 * (count + 1))
        return count

    def data_page(self, owner):
        page = self.new_page()
        self.pages[page][0:2] = b"\x01\x01"
        self.pages[page][4:8] = owner
        return page

    def place(self, part):
        """Puts a part of a long value on a page of its own and says where."""
        page = self.data_page(b"LVAL")
        assert self.add_row(page, part) == 0
        return page << 8

    def long_value(self, content):
        most = self.page_size - 20
        if len(content) <= 64:
            return struct.pack("<III", len(content) | 0x80000000, 0, 0) + content
        if len(content) <= most:
            return struct.pack("<III", len(content) | 0x40000000, self.place(content), 0)
        parts = [content[i:i + most] for i in range(0, len(content), most)]
        following = 0
        for part in reversed(parts):
            following = self.place(struct.pack("<I", following) + part)
        return struct.pack("<III", len(content), following, 0)


def is_fixed(column):
    return column.type in FIXED_SIZES


def stored(file, column, value):
    """The bytes of a value that is not missing."""
    kind = column.type
    if kind in (BYTE, SHORT, LONG, LARGE):
        return struct.pack({BYTE: "<B", SHORT: "<h", LONG: "<i", LARGE: "<q"}[kind], value)
    if kind == MONEY:
        return struct.pack("<q", int(decimal.Decimal(value) * 10000))
    if kind in (SINGLE, DOUBLE):
        return struct.pack("<f" if kind == SINGLE else "<d", value)
    if kind == DATE:
        return struct.pack("<d", value if isinstance(value, float) else days_of(value))
    if kind == TEXT:
        return file.text(value)
    if kind == MEMO:
        return file.long_value(file.text(value))
    if kind == OLE:
        return file.long_value(value)
    if kind == GUID:
        return uuid.UUID(value).bytes_le
    if kind == NUMERIC:
        number = decimal.Decimal(value).scaleb(column.places)
        groups = int(abs(number)).to_bytes(16, "big")
        words = [groups[i:i + 4][::-1] for i in range(0, 16, 4)]
        return (b"\x80" if number < 0 else b"\0") + b"".join(words)
    return value


def packed_row(file, columns, values):
    fixed = bytearray()
    variable = []
    mask = bytearray((len(columns) + 7) // 8)
    for i, (column, value) in enumerate(zip(columns, values)):
        if column.type == BOOL:
            present = bool(value)
        else:
            present = value is not None
            data = stored(file, column, value) if present else b""
            if is_fixed(column):
                fixed += data.ljust(FIXED_SIZES[column.type], b"\0")
            else:
                variable.append(data)
        if present:
            mask[i // 8] |= 1 << (i % 8)
    if file.old:
        return old_row(len(columns), bytes(fixed), variable, bytes(mask))
    row = struct.pack("<H", len(columns)) + bytes(fixed)
    if variable:
        offsets = []
        for data in variable:
            offsets.append(len(row))
            row += data
        for offset in [len(row), *reversed(offsets), len(variable)]:
            row += struct.pack("<H", offset)
    return row + bytes(mask)


def old_row(count, fixed, variable, mask):
    """Offsets have one byte; where they pass 256 a table behind them says."""
    row = bytes([count]) + fixed
    if not variable:
        return row + mask
    offsets = []
    for data in variable:
        offsets.append(len(row))
        row += data
    offsets.append(len(row))
    whole = len(row) + len(offsets) + 1 + len(mask)
    jumps = []
    for bound in range(256, whole + 4, 256):
        later = [i for i, offset in enumerate(offsets) if offset >= bound]
        if later:
            jumps.append(later[0])
    while len(jumps) < (whole + len(jumps) - 1) // 256:
        jumps.append(0xFF)
    row += bytes(offset & 255 for offset in reversed(offsets)) + bytes(reversed(jumps))
    return row + bytes([len(variable)]) + mask


def properties(file, columns):
    """Default values, as a table's entry in the catalog has them."""
    given = [c for c in columns if c.default]
    if not given:
        return None

    def word(text):
        data = text.encode("latin-1" if file.old else "utf-16-le")
        return struct.pack("<H", len(data)) + data

    def chunk(kind, data):
        return struct.pack("<IH", len(data) + 6, kind) + data

    out = (b"KKD\0" if file.old else b"MR2\0") + chunk(0x80, word("DefaultValue"))
    for column in given:
        value = column.default.encode("latin-1" if file.old else "utf-16-le")
        head = word(column.name)
        entry = struct.pack("<HBBHH", 8 + len(value), 1, MEMO, 0, len(value)) + value
        out += chunk(1, struct.pack("<I", len(head) + 4) + head + entry)
    return out


def definition(file, table, rows, used, free):
    columns, indexes = table.columns, table.indexes
    variable = [c for c in columns if not is_fixed(c)]
    kind = 0x53 if table.name.startswith("MSys") else 0x4E
    real = [i for i in indexes if not i.foreign]
    out = bytearray()
    if file.old:
        out += struct.pack("<IIBHHH", rows, table.last_number, kind, len(columns), len(variable),
                           len(columns))
    else:
        out += struct.pack("<IIIBBBBI8xBHHH", 0x659, rows, table.last_number, 1, 0, 0, 0, 0, kind,
                           len(columns), len(variable), len(columns))
    out += struct.pack("<IIII", len(indexes), len(real), used, free)
    for _ in real:
        out += bytes(8 if file.old else 12)
    fixed_at = variable_at = 0
    for number, column in enumerate(columns):
        flags = (1 if is_fixed(column) else 0) | 2 | (4 if column.auto and column.type == LONG else 0)
        if column.auto and column.type == GUID:
            flags |= 0x40
        size = FIXED_SIZES.get(column.type, 17 if column.type == NUMERIC else column.size)
        if column.type == BOOL:
            size = 1
        if column.type == TEXT and not file.old:
            size *= 2
        misc = (bytes([column.digits, column.places]) if column.type == NUMERIC
                else struct.pack("<H", 0x409))
        if file.old:
            out += struct.pack("<BHHHH", column.type, number, variable_at, number, 0x409)
            out += (misc if column.type == NUMERIC else struct.pack("<H", 1252)) + bytes(2)
            out += struct.pack("<BHH", flags, fixed_at, size)
        else:
            out += struct.pack("<BIHHH", column.type, 0x659, number, variable_at, number)
            out += misc + bytes(2) + struct.pack("<BB4xHH", flags, 1, fixed_at, size)
        if is_fixed(column):
            fixed_at += FIXED_SIZES[column.type]
        else:
            variable_at += 1
    for column in columns:
        out += file.name(column.name)
    names = [c.name for c in columns]
    for index in real:
        out += b"" if file.old else bytes(4)
        for i in range(10):
            if i < len(index.columns):
                name = index.columns[i]
                out += struct.pack("<HB", names.index(name.lstrip("-")), 0 if name[0] == "-" else 1)
            else:
                out += struct.pack("<HB", 0xFFFF, 0)
        out += struct.pack("<II", used, 0) + (b"" if file.old else bytes(4))
        out += bytes([1 if index.unique or index.primary else 0])
        out += b"" if file.old else bytes(5)
    for index in indexes:
        shared = real.index(index) if index in real else 0
        number = shared if index in real else len(real) + indexes.index(index)
        out += b"" if file.old else bytes(4)
        out += struct.pack("<IIBIIBBB", number, shared, 0, 0xFFFFFFFF, 0, 0, 0,
                           1 if index.primary else 2 if index.foreign else 0)
        out += b"" if file.old else bytes(4)
    for index in indexes:
        out += file.name(index.name)
    return bytes(out) + b"\xFF\xFF"


def put_definition(file, page, content):
    """Over as many pages as it takes."""
    content = struct.pack("<I", len(content) + 12) + content
    room = file.page_size - 8
    at = page
    while content:
        data = file.pages[at]
        data[0:4] = b"\x02\x01VC"
        data[8:8 + len(content[:room])] = content[:room]
        content = content[room:]
        if content:
            following = file.new_page()
            struct.pack_into("<I", data, 4, following)
            at = following


def marked(pages, first, size):
    bits = bytearray(size)
    for page in pages:
        if first <= page < first + size * 8:
            bits[(page - first) // 8] |= 1 << ((page - first) % 8)
    return bytes(bits)


def usage_map(file, pages):
    """Where it has no room for all pages, other pages hold it."""
    size = 128 if file.old else 64
    first = min(pages) if pages else 0
    if not pages or max(pages) - first < size * 8:
        return b"\0" + struct.pack("<I", first) + marked(pages, first, size)
    room = file.page_size - 4
    places = []
    for begin in range(0, max(pages) + 1, room * 8):
        places.append(file.new_page())
        file.pages[places[-1]][0:2] = b"\x05\x01"
        file.pages[places[-1]][4:] = marked(pages, begin, room)
    return (b"\1" + b"".join(struct.pack("<I", place) for place in places)).ljust(size + 5, b"\0")


def put_table(file, table, page, maps):
    pages = []

    def put(row, flags=0):
        where = file.add_row(pages[-1], row, flags) if pages else None
        if where is None:
            pages.append(file.data_page(struct.pack("<I", page)))
            where = file.add_row(pages[-1], row, flags)
            assert where is not None, "the row is too long for a page"
        return pages[-1] << 8 | where

    packed = [packed_row(file, table.columns, row) for row in table.rows]
    for row in packed:
        put(row)
    for row in table.deleted:
        put(packed_row(file, table.columns, row), DELETED)
    for row in table.moved:
        pages_before = pages[:]
        pages.clear()
        place = put(packed_row(file, table.columns, row), MOVED_HERE)
        pages[:0] = pages_before
        put(struct.pack("<I", place), MOVED)
    used = file.add_row(maps, usage_map(file, pages))
    free = file.add_row(maps, usage_map(file, []))
    assert used is not None and free is not None, "too many tables"
    rows = len(table.rows) + len(table.moved)
    put_definition(file, page, definition(file, table, rows, maps << 8 | used, maps << 8 | free))


def relations_table(relations):
    columns = [Column("ccolumn", LONG), Column("grbit", LONG), Column("icolumn", LONG),
               Column("szColumn", TEXT, 255), Column("szObject", TEXT, 255),
               Column("szReferencedColumn", TEXT, 255), Column("szReferencedObject", TEXT, 255),
               Column("szRelationship", TEXT, 255)]
    rows = []
    for relation in relations:
        for i, (column, other) in enumerate(zip(relation.columns, relation.other_columns)):
            rows.append([len(relation.columns), relation.flags, i, column, relation.table, other,
                         relation.other, relation.name])
    return Table("MSysRelationships", columns, rows)


def queries_table(queries, first_id):
    columns = [Column("Attribute", BYTE), Column("Expression", MEMO), Column("Flag", SHORT),
               Column("LvExtra", LONG), Column("Name1", TEXT, 255), Column("Name2", TEXT, 255),
               Column("ObjectId", LONG), Column("Order", BINARY, 255)]
    rows = []
    for number, query in enumerate(queries):
        for order, (attribute, flag, expression, name, other) in enumerate(query.rows):
            rows.append([attribute, expression, flag, None, name, other, first_id + number,
                         struct.pack(">I", order)])
    return Table("MSysQueries", columns, rows)


def make(tables, version=JET4, charset="cp1252", password="", relations=(), queries=(),
         created=datetime.datetime(2003, 5, 17, 8, 30)):
    file = File(version, charset, password, created)
    catalog = Table("MSysObjects", [
        Column("Id", LONG), Column("ParentId", LONG), Column("Name", TEXT, 64),
        Column("Type", SHORT), Column("DateCreate", DATE), Column("Flags", LONG),
        Column("LvProp", OLE)], [])
    catalog_page = file.new_page()
    first_id = 0x1000
    tables = [*tables, *([relations_table(relations)] if relations else []),
              *([queries_table(queries, first_id)] if queries else [])]
    places = [file.new_page() for _ in tables]
    for table, page in zip([catalog, *tables], [catalog_page, *places]):
        flags = -0x80000000 if table.name.startswith("MSys") else 0
        catalog.rows.append([page, 0x0F000001, table.name, table.kind, created, flags,
                             properties(file, table.columns)])
    for number, query in enumerate(queries):
        catalog.rows.append([first_id + number, 0x0F000001, query.name, 5, created, 0, None])
    for table, page in zip([catalog, *tables], [catalog_page, *places]):
        put_table(file, table, page, file.data_page(struct.pack("<I", page)))
    return file.content()
