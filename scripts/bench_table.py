#!/usr/bin/env python3
"""Prints the benchmark table of `make bench` from the JSON output of quillmark_bench.

One row per benchmark with its wall and CPU time. A benchmark with the argument literal:0
also shows how many times faster it is than its literal:1 twin on one thread; one with
threads:N above 1 shows its wall time over that of the same benchmark on one thread.
"""

import json
import sys


def split(name):
    """Base name and ordered arguments ("literal:0", ...) of a benchmark name."""
    parts = name.split("/")
    args = {}
    order = []
    for part in parts[1:]:
        if ":" in part:
            key, value = part.split(":", 1)
            if key in ("iterations", "real_time", "min_time", "repeats"):
                continue
            args[key] = value
            order.append(key)
        elif part not in ("real_time", "manual_time"):
            args[part] = None
            order.append(part)
    return parts[0], args, order


def key_of(base, args, **changes):
    merged = dict(args)
    merged.update({k: str(v) for k, v in changes.items()})
    return (base, tuple(sorted(merged.items(), key=lambda kv: kv[0])))


def to_ms(value, unit):
    return value * {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}[unit]


def main(path):
    with open(path) as f:
        data = json.load(f)
    rows = []
    index = {}
    for b in data.get("benchmarks", []):
        if b.get("run_type", "iteration") != "iteration" or b.get("error_occurred"):
            continue
        base, args, order = split(b["name"])
        wall = to_ms(b["real_time"], b.get("time_unit", "ns"))
        cpu = to_ms(b["cpu_time"], b.get("time_unit", "ns"))
        label = base[3:] if base.startswith("BM_") else base
        label += "".join(" " + (k if args[k] is None else k + "=" + args[k]) for k in order)
        rows.append((label, base, args, wall, cpu))
        index[key_of(base, args)] = wall

    width = max([len(r[0]) for r in rows] + [9])
    print()
    print(f"{'benchmark':<{width}}  {'wall ms':>11}  {'cpu ms':>11}  {'literal/this':>12}  {'this/1 thread':>13}")
    print("-" * (width + 56))
    for label, base, args, wall, cpu in rows:
        speedup = threads = ""
        if args.get("literal") == "0":
            twin = {"literal": 1}
            if "threads" in args:
                twin["threads"] = 1
            ref = index.get(key_of(base, args, **twin))
            if ref and wall > 0:
                speedup = f"{ref / wall:.1f}x"
        if "threads" in args and args["threads"] not in ("0", "1"):
            one = index.get(key_of(base, args, threads=1))
            if one:
                threads = f"{wall / one:.2f}"
        print(f"{label:<{width}}  {wall:11.3f}  {cpu:11.3f}  {speedup:>12}  {threads:>13}")
    print()
    print("wall/cpu: per iteration of the benchmark; cpu is that of the calling thread only.")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "bench.json")
