# SPDX-License-Identifier: MIT
"""Results of benchmarks for the tests of scripts/lib, which this module makes importable."""

import json
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts/lib"))

import measured


def results(benchmarks, kept=()):
    """The results of benchmarks by their names: times in nanoseconds, or (times, unit).

    kept: the bytes that some of them report, by name.
    """
    rounds = []
    kept = dict(kept)
    for name, times in benchmarks.items():
        times, unit = times if isinstance(times, tuple) else (times, "ns")
        for time in times:
            rounds.append({"run_name": name, "run_type": "iteration", "cpu_time": time, "time_unit": unit}
                          | ({"bytes": kept[name]} if name in kept else {}))
        rounds.append({"run_name": name, "run_type": "aggregate", "cpu_time": 12345, "time_unit": unit})
    context = {"date": "2026-03-04T05:06:07+00:00", "num_cpus": 3}
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "results.json"
        path.write_text(json.dumps({"context": context, "benchmarks": rounds}))
        return measured.Results(path)
