#!/usr/bin/env python3
"""Whole calculation sheets, worked out a second time, away from the C++.

A small calculator of one loop sheet (water cascade, equivalent loads and the
sizing of the radiators, section family or stepped family), written only with
the standard library. Single precision is emulated with struct: every named
quantity is stored as an IEEE single, every step is worked in double from the
single operands. The cell texts follow the old run-time's Format: the decimal
text of the Single to 7 significant digits, then half away from zero to the
decimals of the pattern, thousands grouping, "#" digits only when significant.

    python3 whole_sheets.py > ../WholeSheetCases.inc

Each case is also worked with the intermediate results kept in single and with
no single rounding at all; a case whose texts change between those readings
sits on a knife edge and is reported on stderr (the run stops), so that the
table only holds texts that one rounding more or less cannot move.
"""

import math
import struct
import sys
from decimal import Decimal, ROUND_HALF_UP

MODE = "single"          # "single", "inner" (intermediates in single too), "double"


def f32(x):
    """Store a value in a Single."""
    if MODE == "double":
        return float(x)
    return struct.unpack("<f", struct.pack("<f", float(x)))[0]


def mid(x):
    """An intermediate result of an expression (double, or single in "inner")."""
    return f32(x) if MODE == "inner" else float(x)


class Fail(Exception):
    """The calculation ends without results; the text is the expected outcome."""


# ---------------------------------------------------------------- numbers and text

class Seps:
    def __init__(self, greek):
        self.dec, self.thou = (",", ".") if greek else (".", ",")


def regional(text, seps):
    """The run-time's conversion under the regional settings (CDbl)."""
    t = text.strip(" ")
    if t == "" or " " in t:
        raise Fail("type mismatch")
    t = t.replace(seps.thou, "").replace(seps.dec, ".")
    try:
        return float(t)
    except ValueError:
        raise Fail("type mismatch")


def val(text):
    """Val(): leading number, "." as the only decimal point, blanks ignored."""
    t = "".join(c for c in text if c not in " \t\n")
    i, s = 0, ""
    if i < len(t) and t[i] in "+-":
        s, i = t[i], i + 1
    digits = ""
    seen_point = False
    while i < len(t) and (t[i].isdigit() or (t[i] == "." and not seen_point)):
        seen_point |= t[i] == "."
        digits += t[i]
        i += 1
    try:
        return float(s + digits) if digits.strip(".") else 0.0
    except ValueError:
        return 0.0


def parse_number(text, seps):
    """The one door from typed text to a number; never fails."""
    if text.count(seps.dec) >= 2:
        return 0.0
    t = text.strip()
    good = bad = 0
    mixed = False
    for c in t:
        if c.isdigit() or c in (seps.dec, seps.thou, "-"):
            good += 1
        else:
            bad += 1
        if good and bad:
            mixed = True
            break
    if t in (seps.dec, "-"):
        mixed = True
    if text == "----":
        return -1202.0
    if t == "" or (good == 0 and bad > 0):
        return 0.0
    if mixed:
        return val(t)
    return regional(t, seps)


def round_even(x):
    """Floating value to an integer type: halves to even."""
    return int(round(x))


def vb_mod(a, b):
    a, b = round_even(a), round_even(b)
    if b == 0:
        raise Fail("division by zero")
    return int(math.fmod(a, b))


def fmt(x, decimals, zero_digit, seps):
    """Format(x, "#,###") / "#,##0.0" / "#,##0.00" of a Single."""
    d = Decimal("%.7g" % x).quantize(Decimal(1).scaleb(-decimals), ROUND_HALF_UP)
    sign = "-" if d < 0 else ""
    whole, _, frac = f"{abs(d):f}".partition(".")
    if whole == "0" and not zero_digit:
        whole = ""
    groups = []
    while len(whole) > 3:
        groups.insert(0, whole[-3:])
        whole = whole[:-3]
    if whole:
        groups.insert(0, whole)
    text = seps.thou.join(groups)
    if decimals:
        text += seps.dec + frac
    return sign + text


def f_load(x, s):  # "#,###"
    return fmt(x, 0, False, s)


def f_1(x, s):     # "#,##0.0"
    return fmt(x, 1, True, s)


def f_2(x, s):     # "#,##0.00"
    return fmt(x, 2, True, s)


# ---------------------------------------------------------------- radiator sizing

SECTIONS = [  # model, other spellings, Kcal/h and m2 per section
    ("II/905", ["ΙΙ/905"], 90, 0.2), ("II/655", ["ΙΙ/655"], 70, 0.15),
    ("II/505", ["ΙΙ/505"], 50, 0.12), ("II/355", ["ΙΙ/355"], 40, 0.09),
    ("III/905", ["ΙΙΙ/905"], 130, 0.3), ("III/655", ["ΙΙΙ/655"], 100, 0.23),
    ("III/505", ["ΙΙΙ/505"], 80, 0.18), ("III/355", ["ΙΙΙ/355"], 65, 0.14),
    ("IV/905", ["ΙΩ/905", "ΙV/905"], 170, 0.42), ("IV/655", ["ΙΩ/655", "ΙV/655"], 130, 0.32),
    ("IV/505", ["ΙΩ/505", "ΙV/505"], 110, 0.25), ("IV/355", ["ΙΩ/355", "ΙV/355"], 80, 0.19),
]


def unit_count(q, k_rating, stepped):
    """Smallest count of units: divisibility on rounded values, division on exact ones."""
    if vb_mod(q, k_rating) != 0:
        return math.floor(mid(q / k_rating)) + 1
    if stepped:
        vb_mod(q, 0.0)          # the second rating is never set: division by zero
    return round_even(mid(q / k_rating))


def size_sections(load, model, area_before):
    """Returns size text, output, area, length."""
    for name, others, kcal, m2 in SECTIONS:
        if model == name or model in others:
            n = unit_count(load, kcal, False)
            return f"{n}/{model}", f32(n * kcal), f32(n * f32(m2)), f32(n * 40 / 1000)
    return f"0/{model}", 0.0, area_before, 0.0


def find_record(family, model):
    for rec in family:
        if rec["type"].strip() == model:
            return rec
    return family[-1]           # the lookup ends on the last record


def check_stepped(family, model, col9_text, seps):
    """The range check, on the equivalent load as it stands in column 9."""
    rec = find_record(family, model)
    n = unit_count(parse_number(col9_text, seps), rec["unit"], True)
    return rec["min"] <= n <= rec["max"]


def size_stepped(family, load, model, seps):
    rec = find_record(family, model)
    n = unit_count(load, rec["unit"], True)
    token = ""
    for c in rec["discon"].ljust(100)[:100]:
        if c != ",":
            token += c                      # the token is not cleared at a comma
        elif regional(token, seps) == n:
            n += 1
    steps = f32(n * rec["step"])
    text = ("%.7g" % steps).strip()
    output = f32(math.floor(mid(n * rec["unit"])))
    length = f32(val(rec["first"]) * n / 1000)
    return f"{text}/{model}", output, f32(n * rec["area"]), length


# ---------------------------------------------------------------- the sheet

def check_written_values(rows, seps):
    total = 0
    for name, load, room, model in rows:
        r = parse_number(room, seps)
        if name.strip() == "" or parse_number(load, seps) == 0 or not 10 <= r <= 30 \
                or model.strip() == "":
            raise Fail("row refused")
        total = round_even(total + parse_number(load, seps))
    if total >= 8001:
        raise Fail("over 8000")


def calculate(case):
    """Returns the header texts and the 14 texts of every row, or raises Fail."""
    s = Seps(case["greek"])
    rows, family = case["rows"], case["family"]
    check_written_values(rows, s)

    temp_drop = f32(parse_number(case["drop"], s))
    total = 0.0
    for r in rows:
        total = f32(total + f32(parse_number(r[1], s)))
    flow = f32(total / temp_drop)

    d = f32((16 - 2 * 1) / 1000)                       # the first pipe, "Φ16x1"
    pipe_area = f32(d * d * (3.14159 / 4))
    velocity = f32(mid(mid(flow / 1000) / pipe_area) / 3600)
    sfr = f32(mid(3.99e-9 / d ** 4) * flow)

    cells = []
    running = 0.0
    for r in rows:
        running = f32(running + f32(parse_number(r[1], s)))
        cells.append([r[0], r[1], r[2], f_load(running, s)])

    area = 0.0
    t_in = f32(parse_number(case["inlet"], s))
    for i, (_name, load_t, room_t, model) in enumerate(rows, start=1):
        room, load = f32(parse_number(room_t, s)), f32(parse_number(load_t, s))
        t_out = f32(t_in - mid(load / flow))
        mean = f32((t_out + t_in) / 2)
        factor = f32(60 / (mean - room))
        equiv = f32(load * factor)
        row = cells[i - 1]
        row += [f_1(t_in, s), f_1(t_out, s), f_1(mean, s), f_2(factor, s), f_load(equiv, s), model]
        if family:
            if not check_stepped(family, model.strip(), row[8], s):
                raise Fail(f"too small {i}")
            text, output, area, length = size_stepped(family, equiv, model, s)
        else:
            text, output, area, length = size_sections(equiv, model, area)
        row += [text.strip(), f_load(output, s), f_2(area, s) if area > 0 else "", f_2(length, s)]
        t_in = t_out

    header = [f_load(total, s), f_1(flow, s), f_2(velocity, s), f_2(sfr, s)]
    return header, cells


# ---------------------------------------------------------------- the cases

def model(soma, unit, area, step, first, mn, mx, discon):
    return {"type": soma, "unit": f32(unit), "area": f32(area), "step": f32(step),
            "first": first, "min": mn, "max": mx, "discon": discon}


PANELS = [
    model("22/600", 150.5, 0.25, 100.0, "400", 4, 30, "8,10,"),
    model("22/900", 210.0, 0.36, 100.0, "400", 3, 9, "9,"),
    model("33/600", 150.3, 0.31, 100.0, "400", 10, 20, ""),
    model("11/300", 60.25, 0.08, 50.0, "500", 2, 12, " 6,"),
]

EN, GR = False, True


def case(name, greek, drop, inlet, rows, family=()):
    return {"name": name, "greek": greek, "drop": drop, "inlet": inlet,
            "rows": [tuple(r) for r in rows], "family": list(family)}


CASES = [
    case("one radiator 1000 at 85, drop 20, room 20", EN, "20", "85",
         [("1", "1000", "20", "II/905")]),
    case("two radiators of 1000: the second enters at 75", EN, "20", "85",
         [("1", "1000", "20", "II/905"), ("2", "1000", "20", "III/655")]),
    case("full sheet of eight radiators, every section model", EN, "20", "85",
         [("1", "850", "20", "II/655"), ("2", "1200", "22", "III/905"),
          ("3", "640", "18", "II/505"), ("4", "420", "20", "II/355"),
          ("WC", "300", "24", "III/355"), ("6", "980", "20", "IV/905"),
          ("7", "760", "20", "IV/655"), ("8", "530", "16", "IV/355")]),
    case("room temperatures from 15 to 25", EN, "20", "85",
         [("A1", "900", "15", "III/655"), ("A2", "900", "18", "III/655"),
          ("A3", "900", "20", "III/655"), ("A4", "900", "22", "III/655"),
          ("A5", "900", "25", "III/655")]),
    case("drop 8 with inlet 90", EN, "8", "90",
         [("1", "1500", "20", "IV/905"), ("2", "1100", "20", "IV/505"),
          ("3", "700", "18", "III/505")]),
    case("drop 30 with inlet 90", EN, "30", "90",
         [("1", "1800", "20", "IV/905"), ("2", "1400", "20", "III/905"),
          ("3", "1000", "20", "II/905"), ("4", "600", "20", "II/505")]),
    case("low inlet of 30 with drop 8, cool rooms", EN, "8", "30",
         [("1", "300", "12", "IV/905"), ("2", "250", "10", "IV/655")]),
    case("loads with decimals, one typed with a thousands comma", EN, "20", "85",
         [("1", "1250.5", "20", "II/905"), ("2", "833.3", "20", "II/655"),
          ("3", "415.75", "21", "III/505"), ("4", "1,020.4", "20", "IV/505")]),
    case("models typed on the Greek keyboard", EN, "20", "85",
         [("1", "1000", "20", "ΙΙ/905"), ("2", "800", "20", "ΙΩ/655"),
          ("3", "600", "20", "ΙV/505"), ("4", "400", "20", "ΙΙΙ/355")]),
    case("unknown section model keeps the area of the row before", EN, "20", "85",
         [("1", "700", "20", "V/905"), ("2", "1000", "20", "II/905"),
          ("3", "500", "20", "IV/9O5"), ("4", "600", "20", "II/655")]),
    case("equivalent loads on and near whole multiples of the section", EN, "30", "90",
         [("1", "900", "25", "II/905"), ("2", "446.8", "18", "II/905"),
          ("3", "168.7", "18", "II/905"), ("4", "396.8", "18", "II/905"),
          ("5", "365.9", "18", "II/905"), ("6", "421.8", "20", "III/505")]),
    case("stepped family: a discontinuity moves 8 steps to 9", EN, "20", "85",
         [("1", "1150", "20", "22/600"), ("2", "1500", "20", "22/900")],
         PANELS),
    case("stepped family: the second number of the list has no effect", EN, "20", "85",
         [("1", "1390", "20", "22/600"), ("2", "300", "20", "11/300"),
          ("3", "1200", "20", "33/600")],
         PANELS),
    case("stepped family: a model missing from the family takes the last one", EN, "20", "85",
         [("1", "500", "20", "22/600"), ("2", "300", "20", "PK/11")],
         PANELS),
    case("stepped family: the range check reads the rounded column 9", EN, "20", "90",
         [("1", "1352.6", "20", "33/600")],
         PANELS),
    case("stepped family: model too small for the load", EN, "20", "85",
         [("1", "600", "20", "22/600"), ("2", "2100", "20", "22/900"),
          ("3", "500", "20", "22/600")],
         PANELS),
    case("stepped family: model too big for the load", EN, "20", "85",
         [("1", "400", "20", "33/600")],
         PANELS),
    case("stepped family: equivalent load an exact multiple of the rating", EN, "20", "85",
         [("1", "1155", "20", "22/900")],
         PANELS),
    case("loads just above 8000 in total still pass", EN, "20", "85",
         [("1", "2000.4", "20", "IV/905"), ("2", "2000.4", "20", "IV/905"),
          ("3", "2000.4", "20", "IV/905"), ("4", "2000.4", "20", "IV/905")]),
    case("a load of 8000.6 is refused", EN, "20", "85",
         [("1", "8000.6", "20", "IV/905")]),
    case("Greek separators: big loads and a decimal comma", GR, "10", "85",
         [("1", "2500", "20", "IV/905"), ("2", "1250,5", "20", "III/905"),
          ("3", "2.000", "18", "ΙΩ/905"), ("4", "1650,25", "22", "IV/655")]),
    case("Greek separators: stepped family", GR, "20", "80",
         [("1", "1500", "20", "22/900"), ("2", "900", "20", "22/600"),
          ("3", "300,5", "20", "11/300")],
         PANELS),
]


# ---------------------------------------------------------------- output

def q(t):
    return '"' + t.replace("\\", "\\\\").replace('"', '\\"') + '"'


def c_float(x):
    """The shortest literal that gives the same Single."""
    for decimals in range(0, 10):
        r = "%.*f" % (decimals, x)
        if f32(float(r)) == x:
            break
    return (r if "." in r else r + ".0") + "f"


def outcome(c):
    try:
        return "ok", calculate(c)
    except Fail as e:
        return str(e), None


def work_all_ways(c):
    """The outcome in the three readings of precision; they must agree."""
    global MODE
    results = {}
    for MODE in ("single", "inner", "double"):
        results[MODE] = outcome(c)
    MODE = "single"
    if results["inner"] != results["single"] or results["double"] != results["single"]:
        sys.exit(f"case on a knife edge: {c['name']}\n{results}")
    return results["single"]


def emit(c):
    kind, result = work_all_ways(c)
    header, cells = result if result else (["", "", "", ""], [])
    family = [f"{{{q(m['type'])}, {c_float(m['unit'])}, {c_float(m['area'])}, "
              f"{c_float(m['step'])}, {q(m['first'])}, {m['min']}, {m['max']}, {q(m['discon'])}}}"
              for m in c["family"]]
    rows = ["{" + ", ".join(q(t) for t in r) + "}" for r in c["rows"]]
    cells = ["{" + ", ".join(q(t) for t in r) + "}" for r in cells]
    out = [f"{{{q(c['name'])}, {'true' if c['greek'] else 'false'}, {q(c['drop'])}, "
           f"{q(c['inlet'])}, {{}},"]
    if family:
        out[0] = out[0][:-4]
        out.append(" {" + ",\n  ".join(family) + "},")
    out.append(" {" + ",\n  ".join(rows) + "},")
    out.append(" " + ", ".join(q(t) for t in [kind] + header) + ",")
    out.append(" {" + ",\n  ".join(cells) + "}},")
    return "\n".join(out)


def self_check():
    """The rules on the small examples they are known by."""
    en, gr = Seps(False), Seps(True)
    assert fmt(0, 0, False, en) == "" and fmt(0.5, 1, True, en) == "0.5"
    assert fmt(f32(1234.567), 2, True, en) == "1,234.57"
    assert fmt(f32(1234.567), 2, True, gr) == "1.234,57"
    assert fmt(2.25, 1, True, en) == "2.3" and fmt(2700.5, 0, False, en) == "2,701"
    assert parse_number("1.234,5", gr) == 1234.5 and parse_number("1,5,2", gr) == 0
    assert [parse_number(t, en) for t in ("12a", "a12", "abc", "-5", "-", "----")] == \
        [12, 0, 0, -5, 0, -1202]
    assert round_even(2.5) == 2 and round_even(3.5) == 4 and vb_mod(-7, 3) == -1
    assert size_sections(500.0, "II/905", 0.0)[:2] == ("6/II/905", 540.0)
    assert size_sections(450.0, "II/905", 0.0)[0] == "5/II/905"
    assert size_sections(f32(450.4), "II/905", 0.0)[0] == "5/II/905"
    assert size_sections(f32(180.4), "II/905", 0.0)[0] == "2/II/905"
    assert unit_count(3001.5, f32(1000.5), True) == 4
    for q, discon, n in ((1100.0, "8,10,", 9), (1450.0, "8,10,", 10), (1100.0, "8", 8),
                         (1100.0, "7,8,", 8)):
        fam = [model("P", 150.5, 0.1, 100.0, "400", 1, 30, discon)]
        assert size_stepped(fam, q, "P", en)[0] == f"{n * 100}/P", (q, discon)
    try:
        unit_count(300.0, 100.0, True)
        raise AssertionError("an exact multiple must fail")
    except Fail as e:
        assert str(e) == "division by zero"


def main():
    self_check()
    print("// Generated by oracle/whole_sheets.py: whole sheets worked out independently of the program.")
    print("// Each case: name, Greek separators, TxtTempDrop, TxtOrigTemp; the stepped family (none:")
    print("// the sections); the rows as typed (columns 1, 2, 3, 10); the outcome, TxtLoopLoad, TxtFlow,")
    print("// TxtVelocity, TxtSFR; all 14 cells of each data row after Calculate.")
    for c in CASES:
        print(emit(c))


if __name__ == "__main__":
    main()
