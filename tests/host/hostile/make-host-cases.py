#!/usr/bin/env python3
"""Writes the host's hostile-input cases: well-formed model files whose numbers mean
nothing, or whose runs would not fit in memory. Run it in this folder."""
import json


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
