#!/usr/bin/env python3
"""Writes the host's hostile-input cases: well-formed model files whose numbers mean
nothing, or whose runs would not fit in memory. Run it in this folder."""
import json
import struct


def tunnel(**fields):
    t = {"name": "T1",
         "centreLine": {"start": {"x": 0.0, "y": -100.0, "z": 80.0},
                        "end": {"x": 0.0, "y": 100.0, "z": 80.0}},
         "groundLevels": [100.0, 100.0], "diameter": 6.0, "percentLoss": 1.0,
         "soilType": "Cohesive", "surface": {"kDerivation": "O'Reilly and New", "k": 0.5}}
    t.update(fields)
    return t


def tunnels(*records):
    return {"description": "Tunnels", "records": list(records)}


LINE = {"description": "Displacement Lines", "records": [
    {"name": "Section", "point1": {"x": -50.0, "y": 0.0, "z": 100.0},
     "point2": {"x": 50.0, "y": 0.0, "z": 100.0}, "intervals": 20}]}


def grid(extrusion=100.0, along=10, across=10):
    return {"description": "Displacement Grids", "records": [
        {"name": "Site grid", "point1": {"x": -50.0, "y": -50.0, "z": 100.0},
         "point2": {"x": 50.0, "y": -50.0, "z": 100.0}, "extrusionDirection": "Y",
         "extrusionDistance": extrusion, "intervals": along, "intervalsAlongExtrusion": across}]}


def project(*modules, problem="TUNNEL"):
    return {"modules": [{"description": "Parameters",
                         "records": [{"general": {"problemType": problem}}]}] + list(modules)}


def write(name, doc, indent=1):
    with open(name, "w") as f:
        f.write(json.dumps(doc, indent=indent) + "\n")


write("tunnel-nan-diameter.json", project(tunnels(tunnel(diameter="NaN")), LINE))
write("tunnel-infinite-loss.json", project(tunnels(tunnel(percentLoss="Infinity")), LINE))
write("tunnel-huge-loss.json", project(tunnels(tunnel(percentLoss=1e308)), LINE))
write("tunnel-negative-diameter.json", project(tunnels(tunnel(diameter=-6.0)), LINE))
write("tunnel-nan-centre-line.json", project(tunnels(tunnel(centreLine={
    "start": {"x": "NaN", "y": -100.0, "z": 80.0}, "end": {"x": 0.0, "y": 100.0, "z": 80.0}})),
    LINE))
write("tunnel-k-not-used.json",
      project(tunnels(tunnel(surface={"kDerivation": "Not used", "k": 0.5})), LINE))
write("stage-property-nan.json", project(
    tunnels(tunnel()), LINE,
    {"description": "Stages", "records": [{"name": "Drive", "tunnels": "1"}]},
    {"description": "Stage Properties", "records": [
        {"name": "Enlarge", "stage": 1, "elementType": "Tunnel", "refs": "1",
         "tunnelProperty": "Diameter", "values": ["NaN"]}]}))
write("grid-infinite-extent.json", project(tunnels(tunnel()), grid(extrusion="Infinity")))
write("coordinate-1e70.json", project(tunnels(tunnel()), {
    "description": "Displacement Points",
    "records": [{"name": "Far", "point": {"x": 1.2345e70, "y": 0.0, "z": 100.0}}]}))
write("grid-2e9-by-2e9.json",
      project(tunnels(tunnel()), grid(along=2000000000, across=2000000000)))
write("line-int-max-intervals.json", project(tunnels(tunnel()), {
    "description": "Displacement Lines", "records": [
        {"name": "Section", "point1": {"x": -50.0, "y": 0.0, "z": 100.0},
         "point2": {"x": 50.0, "y": 0.0, "z": 100.0}, "intervals": 2147483647}]}))
# Thousands of empty stages over a modest grid: every stage holds a copy of each sample.
write("many-stages.json", project(tunnels(tunnel()), grid(along=300, across=300),
                                  {"description": "Stages", "records": [{}] * 2000}),
      indent=None)
write("mine-out-of-range.json", project({"description": "Mine Seams", "records": [
    {"name": "Panel", "closure": -2.0, "panelWidth": 0.0, "lowerStratumThickness": 300.0,
     "upperStratumThickness": 100.0, "anglesOfDraw": {"lower": 95.0, "upper": "NaN"},
     "centreLine": {"start": {"x": 0.0, "y": -400.0}, "end": {"x": 0.0, "y": 400.0}}}]},
    LINE, problem="MINE"))


# ---- Excavations ------------------------------------------------------------------------

def excavation(**fields):
    e = {"excavation": {"name": "Pit", "surfaceLevel": 100.0},
         "vertices": [{"x": 0.0, "y": 0.0}, {"x": 0.0, "y": 10.0}, {"x": 10.0, "y": 10.0}],
         "baseLevels": [90.0, 90.0, 90.0],
         "corners": [{"verticalCurve": 5, "horizontalCurve": 5}] * 3}
    e.update(fields)
    return {"description": "Polygonal Excavations", "records": [e]}


write("excavation-vertices-not-array.json", project(excavation(vertices=3), LINE))
write("excavation-corner-flag-number.json",
      project(excavation(corners=[{"stiffened": 1}]), LINE))
write("excavation-base-level-text.json",
      project(excavation(baseLevels=[90.0, "deep", 90.0]), LINE))
write("excavation-shaft-centre-list.json", project({
    "description": "Circular Excavations",
    "records": [{"excavation": {"name": "Shaft"}, "diameter": 8.0, "baseLevel": 75.0,
                 "centre": [60.0, 15.0]}]}, LINE))


# The binary form: magic and container version, then modules of records; each field is
# a type tag (1 integer, 2 number, 3 yes/no, 4 text) and its little-endian value.
def b_int(v):
    return struct.pack("<Bi", 1, v)


def b_double(v):
    return struct.pack("<Bd", 2, v)


def b_bool(v):
    return struct.pack("<BB", 3, 1 if v else 0)


def b_text(s):
    data = s.encode()
    return struct.pack("<BI", 4, len(data)) + data


def b_module(key, description, generation, records):
    body = b"".join(struct.pack("<I", len(r)) + r for r in records)
    data = description.encode()
    return (struct.pack("<iI", key, len(data)) + data +
            struct.pack("<iiQ", len(records), generation, len(body)) + body)


def b_file(*modules):
    return b"ZORVOBIN" + struct.pack("<I", 1) + b"".join(modules)


def b_polygon(vertices, corners, vertex_count=None, base_count=None, corner_count=None):
    """A polygonal excavation record of generation 7 with its own corners."""
    r = b_int(9) + b_text("Pit") + b_double(100.0) + b_int(0)
    r += b_bool(True) + b_bool(False) + b_bool(False) + b_double(0.0)
    r += b_int(7)
    r += b_int(len(vertices) if vertex_count is None else vertex_count)
    for x, y in vertices:
        r += b_double(x) + b_double(y)
    r += b_int(len(vertices) if base_count is None else base_count)
    r += b"".join(b_double(90.0) for _ in vertices)
    r += b_int(corners if corner_count is None else corner_count)
    for _ in range(corners):
        r += b_int(8) + b"".join(b_double(v) for v in (0.0, 0.67, 0.25, 0.0, 0.67, 0.25))
        r += b_bool(False) + b_int(5) + b_int(5) + b_bool(True) + b_bool(True)
        r += b_double(0.0) + b_double(0.0)
    return r


def write_binary(name, data):
    with open(name, "wb") as f:
        f.write(data)


SQUARE = [(0.0, 0.0), (0.0, 10.0), (10.0, 10.0), (10.0, 0.0)]
write_binary("excavation-vertices-2e31.zorvo", b_file(b_module(
    202130, "Polygonal Excavations", 7, [b_polygon(SQUARE, 4, vertex_count=2147483647)])))
write_binary("excavation-corners-negative.zorvo", b_file(b_module(
    202130, "Polygonal Excavations", 7, [b_polygon(SQUARE, 4, corner_count=-4)])))
# The record says 4 corners but ends after the first corner's curve numbers.
cut = b_polygon(SQUARE, 4)
cut = cut[:cut.index(b_bool(False) + b_int(5) + b_int(5)) + 2 + 10]
write_binary("excavation-corners-short.zorvo", b_file(b_module(
    202130, "Polygonal Excavations", 7, [cut])))
# The record ends inside the contribution, an integer, of the shared fields.
cut = b_polygon(SQUARE, 4)
cut = cut[:len(b_int(9) + b_text("Pit") + b_double(100.0)) + 3]
write_binary("excavation-truncated.zorvo", b_file(b_module(
    202130, "Polygonal Excavations", 7, [cut])))


# ---- Buildings ------------------------------------------------------------------------


def b_building(generation=7, stages=0):
    """A specific building record on line 1 with default properties and a stage count."""
    r = b_int(generation) + b_text("Terrace") + b_text("East") + b_int(1)
    r += b_int(1) + b_int(1) + b_double(0.2) + b_double(2.6) + b_bool(True)
    r += b"".join(b_double(v) for v in (1000.0 / 3, 10.0, 10.0, 1000.0 / 12, 5.0, 5.0))
    r += b_double(0.0001) + b_int(1) + b_double(0.0)
    r += b_double(0.0) + b_double(20.0) + b_double(10.0) + b_int(stages)
    return r + b_int(1) + b_int(0)


write_binary("building-stages-2e31.zorvo", b_file(b_module(
    202070, "Specific Buildings", 7, [b_building(stages=2147483647)])))
write_binary("building-generation-4.zorvo", b_file(b_module(
    202070, "Specific Buildings", 4, [b_building(generation=4)])))
write("building-category-7.json", project(LINE, {
    "description": "Specific Buildings", "records": [{"specificBuilding": {
        "name": "Terrace", "stageResults": [{"offsets": [{"segments": [
            {"damageCategory": 7}]}]}]}}]}))
write("strains-limits-short.json", project({
    "description": "Damage Category Strains", "records": [{"damageCategoryStrains": {
        "name": "Short", "strainLimits": [0.0, 0.0005]}}]}))


# ---- Utilities ------------------------------------------------------------------------


def b_specific_utility(utility_type=0, cut_after_name=False):
    """A specific utility record of generation 15 on displacement line 1."""
    r = b_int(1) + b_text("Gas main")
    if cut_after_name:
        return r
    r += b_int(1) + b_int(1) + b_double(3.0) + b_int(utility_type) + b_bool(True) + b_bool(False)
    r += b_int(15) + b_text("Sub 1") + b_int(1) + b_double(0.0) + b_double(30.0)
    return r + b_int(0) + b_int(1) + b_bool(True) + b_bool(True)


write_binary("utility-type-7.zorvo", b_file(b_module(
    202180, "Specific Utilities", 15, [b_specific_utility(utility_type=7)])))
write_binary("utility-truncated.zorvo", b_file(b_module(
    202180, "Specific Utilities", 15, [b_specific_utility(cut_after_name=True)])))
write("criteria-not-object.json", project({
    "description": "Acceptance Criteria", "records": [{"acceptanceCriteria": []}]}))
