"""The standard pictures of a torsional vibration report, drawn with matplotlib.

Each function takes the Results of quillmark.read_results, writes the figure to `path`
(PNG, SVG or PDF by its extension) and returns the matplotlib Figure.
"""

import math
from collections import defaultdict, deque

import numpy as np

import matplotlib

matplotlib.use("Agg") if matplotlib.get_backend().lower() in ("", "agg") else None
import matplotlib.pyplot as plt  # noqa: E402

from ._quillmark import QuillmarkError  # noqa: E402

__all__ = ["campbell", "modes", "response"]

DAMPER_RING = 3      # mass type of a viscous damper's ring
DAMPER_SPRING = 12   # shaft type of the spring between a damper's ring and casing
REPORT_STYLE = {
    "font.size": 10,
    "axes.titlesize": 11,
    "axes.labelsize": 10,
    "legend.fontsize": 8,
    "axes.grid": True,
    "grid.alpha": 0.3,
}


def _need(results, table, what):
    if table not in results:
        raise QuillmarkError("{}: the results of {!r} in {} have no {} table (run the {} calculation)".format(
            what, results.title, results.result_dir, table,
            "free" if table in ("natural_frequencies", "relative_deflection") else "forced"))
    return results[table]


def _save(fig, path):
    fig.savefig(path, dpi=150)
    return fig


# ---------------------------------------------------------------------------------------
# Campbell diagram

def _order_lines(results):
    """The order lines to draw: (order on the reference speed, label, kind) for each order of
    each exciting unit, its own order times the speed ratio of its shaft, so that every line
    stands on the speed axis of the load cases. Equal lines are drawn once."""
    lines = {}
    for s in results.model["sources"]:
        ratio = s["speed_ratio"] or 1.0
        for q in s["orders"]:
            if q > 0:
                key = round(q * ratio, 9)
                label = _order_text(q) if s["kind"] == "Diesel" else "{}{}".format(s["kind"][0], _order_text(q))
                lines.setdefault(key, (q * ratio, label, s["kind"]))
    return sorted(lines.values())


def _vector_sum_strength(results):
    """Vector sum of each (engine order, mode), the strongest over the engines."""
    if "vector_sums" not in results:
        return {}
    vs = results["vector_sums"]
    out = defaultdict(float)
    for q, m, v in zip(vs["order"], vs["mode"], vs["vector_sum"]):
        if np.isfinite(v):
            out[(float(q), int(m))] = max(out[(float(q), int(m))], float(v))
    return out


def campbell(results, path, max_modes=4):
    """Natural frequencies against speed with the order lines of the exciting units, the
    load case speed range shaded, and the critical speeds where an order line meets a mode:
    the larger the dot, the larger the engine order's vector sum in that mode; ringed when
    inside the load case range."""
    nf = _need(results, "natural_frequencies", "Campbell diagram")
    speeds = np.asarray(results.model["load_case_speeds_rpm"], dtype=float)
    lines = _order_lines(results) or [(float(k), str(k), "Diesel") for k in range(1, 13)]
    cpm = np.asarray(nf["frequency_cpm"])[1:]  # the rigid-body mode has no resonance
    modes_no = np.asarray(nf["mode"])[1:]
    candidates = [(int(m), f) for m, f in zip(modes_no, cpm) if np.isfinite(f) and f > 0]
    if not candidates:
        raise QuillmarkError("Campbell diagram: {!r} has no natural frequency above the rigid-body mode".format(
            results.title))
    if speeds.size and speeds.max() > 0:
        top_speed = 1.2 * speeds.max()
    else:
        top_speed = 1.2 * candidates[0][1] / lines[0][0]
    # Modes that no order line reaches in the speed range have no critical speed: leave them out.
    reach = max(q for q, _, _ in lines) * top_speed
    shown = [(m, f) for m, f in candidates if f <= reach][:max_modes] or candidates[:1]
    f_top = 1.15 * max(f for _, f in shown)
    strength = _vector_sum_strength(results)
    engines = [s for s in results.model["sources"] if s["kind"] == "Diesel"]
    engine_axis = all(abs(s["speed_ratio"] - 1.0) < 1e-12 for s in engines)

    with plt.rc_context(REPORT_STYLE):
        fig, ax = plt.subplots(figsize=(8, 6.5), constrained_layout=True)
        if speeds.size:
            ax.axvspan(speeds.min(), speeds.max(), color="tab:green", alpha=0.12, lw=0,
                       label="load cases {:.0f} to {:.0f} rpm".format(speeds.min(), speeds.max()))
        n = np.array([0.0, top_speed])
        placed = []
        for q, label, kind in lines:
            ax.plot(n, q * n, "-" if kind == "Diesel" else "--", color="0.45", lw=0.8, zorder=2)
            # the label sits where the line leaves the plot, unless another one is too close
            if q * top_speed <= f_top:
                xy, align, off = (top_speed, q * top_speed), dict(ha="right", va="bottom"), (-2, 1)
                frac = (1.0, q * top_speed / f_top)
            else:
                xy, align, off = (f_top / q, f_top), dict(ha="center", va="top"), (-3, -2)
                frac = (f_top / q / top_speed, 1.0)
            if all(abs(frac[0] - a) + abs(frac[1] - b) > 0.035 for a, b in placed):
                placed.append(frac)
                ax.annotate(label, xy, xytext=off, textcoords="offset points", fontsize=7.5, color="0.2",
                            **align)
        colors = plt.rcParams["axes.prop_cycle"].by_key()["color"]
        for k, (m, f) in enumerate(shown):
            c = colors[k % len(colors)]
            ax.axhline(f, color=c, lw=1.8, label="mode {}: {:.1f} cpm ({:.2f} Hz)".format(m, f, f / 60.0), zorder=3)
            for q, label, kind in lines:
                x = f / q
                if not 0 < x <= top_speed:
                    continue
                v = strength.get((q, m), 0.6) if kind == "Diesel" else 0.6
                ax.plot([x], [f], "o", color=c, ms=2.5 + 7.0 * min(max(v, 0.0), 1.0), zorder=4)
                if speeds.size and speeds.min() <= x <= speeds.max() and v >= 0.2:
                    ax.plot([x], [f], "o", mfc="none", mec="red", ms=12, mew=1.4, zorder=5)
        ax.plot([], [], "o", mfc="none", mec="red", ms=10, mew=1.4, ls="none",
                label="critical speed in the load case range\n(dot size: vector sum; ringed from 0.2)")
        if any(kind != "Diesel" for _, _, kind in lines):
            ax.plot([], [], "--", color="0.45", lw=0.8, label="orders of other units\n(P propeller, G generator, ...)")
        ax.set_xlim(0, top_speed)
        ax.set_ylim(0, f_top)
        ax.set_xlabel("Engine speed [rpm]" if engine_axis else "Speed of the load cases [rpm]")
        ax.set_ylabel("Frequency [cpm]")
        sec = ax.secondary_yaxis("right", functions=(lambda y: y / 60.0, lambda y: y * 60.0))
        sec.set_ylabel("Frequency [Hz]")
        ax.set_title("Campbell diagram: {}".format(results.title), pad=10)
        ax.legend(loc="upper center", bbox_to_anchor=(0.5, -0.1), ncol=2, framealpha=0.9)
        return _save(fig, path)


def _order_text(q):
    return "{:g}".format(q)


# ---------------------------------------------------------------------------------------
# Mode shapes

def _line_layout(model):
    """Position of each inertia along the line and the branches of the line.

    The position is the number of shafts from the first inertia, walking the tree of shafts.
    The main line follows the longest way from the first inertia; every other way out of an
    inertia is a branch, drawn from its junction. Damper rings and their springs are left
    out: they hold no relative deflection. Returns ({id: position}, [branch: [ids]]).
    """
    rings = {i["id"] for i in model["inertias"] if i["mass_type"] == DAMPER_RING}
    ids = [i["id"] for i in model["inertias"] if i["id"] not in rings]
    nbrs = defaultdict(list)
    for s in model["shafts"]:
        a, b = s["from_inertia"], s["to_inertia"]
        if s["shaft_type"] == DAMPER_SPRING or a in rings or b in rings:
            continue
        nbrs[a].append(b)
        nbrs[b].append(a)
    pos, children, roots = {}, defaultdict(list), []
    for start in ids:  # every part of the line, should the model have more than one
        if start in pos:
            continue
        roots.append(start)
        pos[start] = 0 if len(pos) == 0 else max(pos.values()) + 2
        todo = deque([start])
        while todo:
            a = todo.popleft()
            for b in nbrs[a]:
                if b not in pos:
                    pos[b] = pos[a] + 1
                    children[a].append(b)
                    todo.append(b)

    depth = {}
    for node in sorted(pos, key=pos.get, reverse=True):
        depth[node] = 1 + max((depth[c] for c in children[node]), default=0)

    branches = []

    def follow(path):
        while True:
            node = path[-1]
            kids = sorted(children[node], key=lambda c: -depth[c])
            if not kids:
                return path
            for k in kids[1:]:
                branches.append(follow([node, k]))
            path.append(kids[0])

    for k, r in enumerate(roots):
        line = follow([r])
        branches.insert(0, line) if k == 0 else branches.append(line)
    return pos, branches


def modes(results, path, max_modes=4):
    """Relative deflection of the inertias along the line in the first modes above the
    rigid-body mode, one panel per mode, each branch of the line its own curve."""
    rd = _need(results, "relative_deflection", "Mode shapes")
    nf = _need(results, "natural_frequencies", "Mode shapes")
    pos, branches = _line_layout(results.model)
    mode_col = np.asarray(rd["mode"])
    ids = np.asarray(rd["inertia_id"])
    vals = np.asarray(rd["relative_deflection"])
    mode_list = [int(m) for m in np.unique(mode_col)][:max_modes]
    if not mode_list:
        raise QuillmarkError("Mode shapes: {!r} has no mode above the rigid-body mode".format(results.title))
    cpm = dict(zip(np.asarray(nf["mode"]).tolist(), np.asarray(nf["frequency_cpm"]).tolist()))
    main = branches[0]

    with plt.rc_context(REPORT_STYLE):
        fig, axes = plt.subplots(len(mode_list), 1, figsize=(8, 1.2 + 2.0 * len(mode_list)), sharex=True,
                                 constrained_layout=True, squeeze=False)
        colors = plt.rcParams["axes.prop_cycle"].by_key()["color"]
        for ax, m in zip(axes[:, 0], mode_list):
            sel = mode_col == m
            value = dict(zip(ids[sel].tolist(), vals[sel].tolist()))
            for k, br in enumerate(branches):
                xs = [pos[i] for i in br]
                ys = [value.get(i, np.nan) for i in br]
                label = "main line" if k == 0 else "branch from inertia {}".format(br[0])
                ax.plot(xs, ys, "-o", ms=3.5, lw=1.4, color=colors[k % len(colors)], label=label)
                if k > 0:  # the axis names the main line's inertias; a branch names its own
                    for i, x, y in zip(br[1:], xs[1:], ys[1:]):
                        ax.annotate(str(i), (x, y), xytext=(4, 2), textcoords="offset points", fontsize=7.5,
                                    color=colors[k % len(colors)])
            ax.axhline(0.0, color="0.3", lw=0.8)
            f = cpm.get(m, float("nan"))
            ax.set_title("Mode {}: {:.1f} cpm ({:.2f} Hz)".format(m, f, f / 60.0), loc="left")
            ax.set_ylabel("Rel. deflection [-]")
            if len(branches) > 1 and ax is axes[0, 0]:
                ax.legend(loc="best")
        bottom = axes[-1, 0]
        bottom.set_xticks([pos[i] for i in main])
        bottom.set_xticklabels([str(i) for i in main], fontsize=8)
        bottom.set_xlabel("Inertia ID along the line")
        fig.suptitle("Mode shapes: {}".format(results.title))
        return _save(fig, path)


# ---------------------------------------------------------------------------------------
# Response over speed

def _shaft_frame(results):
    sy = _need(results, "shaft_synthesis", "Response")
    return {k: np.asarray(v) for k, v in sy.items()}


def _largest_order(results, table, column):
    """{shaft id: (speeds, largest amplitude over the sources, units and orders)} per load case."""
    if table not in results:
        return {}
    t = results[table]
    sid, lc = np.asarray(t["shaft_id"]), np.asarray(t["load_case"])
    speed, amp = np.asarray(t["speed_rpm"]), np.asarray(t[column])
    out = {}
    for s in np.unique(sid):
        sel = sid == s
        cases = np.unique(lc[sel])
        peak = np.array([np.nanmax(amp[sel & (lc == c)]) for c in cases])
        out[int(s)] = (np.array([speed[sel & (lc == c)][0] for c in cases]), peak)
    return out


def _default_shafts(sy, model, per_order, count=3):
    """The shafts with the largest synthesized stress (torque where no shaft has a
    diameter); where the synthesis holds nothing (all zero), those with the largest single
    order of torque."""
    springs = {s["id"] for s in model["shafts"] if s["shaft_type"] == DAMPER_SPRING}
    key = "stress_Pa" if np.nanmax(np.abs(sy["stress_Pa"]), initial=0.0) > 0 else "torque_Nm"
    peak = defaultdict(float)
    for sid, t in zip(sy["shaft_id"], sy[key]):
        if int(sid) not in springs and np.isfinite(t):
            peak[int(sid)] = max(peak[int(sid)], abs(float(t)))
    if not any(peak.values()):
        for sid, (_, amp) in per_order.items():
            if sid not in springs and np.isfinite(amp).any():
                peak[sid] = float(np.nanmax(amp))
    return sorted(s for s, _ in sorted(peak.items(), key=lambda kv: -kv[1])[:count])


def response(results, path, shafts=None):
    """Synthesized alternating torque and stress of the chosen shafts (by ID; the three
    with the largest stress when None) over the load case speeds, with their nominal torque
    and the largest single order; and the propeller ice torque where the model has ice
    excitation."""
    sy = _shaft_frame(results)
    torque_order = _largest_order(results, "torque", "amplitude_Nm")
    stress_order = _largest_order(results, "stress", "amplitude_Pa")
    if shafts is None:
        shafts = _default_shafts(sy, results.model, torque_order)
    shafts = [int(s) for s in shafts]
    known = set(int(s) for s in sy["shaft_id"])
    unknown = [s for s in shafts if s not in known]
    if unknown or not shafts:
        raise QuillmarkError("Response: no shaft with ID {} in {!r}".format(unknown or shafts, results.title))
    ice = "ice_torque_Nm" in sy
    panels = 3 if ice else 2

    with plt.rc_context(REPORT_STYLE):
        fig, axes = plt.subplots(panels, 1, figsize=(8, 2.8 * panels + 0.8), sharex=True, constrained_layout=True)
        colors = plt.rcParams["axes.prop_cycle"].by_key()["color"]
        for k, sid in enumerate(shafts):
            sel = sy["shaft_id"] == sid
            order = np.argsort(sy["speed_rpm"][sel], kind="stable")
            n = sy["speed_rpm"][sel][order]
            c = colors[k % len(colors)]
            axes[0].plot(n, sy["torque_Nm"][sel][order] / 1e3, "-o", ms=3.5, color=c,
                         label="shaft {}: synthesized".format(sid))
            if sid in torque_order:
                axes[0].plot(torque_order[sid][0], torque_order[sid][1] / 1e3, ":", color=c, lw=1.3,
                             label="shaft {}: largest order".format(sid))
            axes[0].plot(n, np.abs(sy["nominal_torque_Nm"][sel][order]) / 1e3, "--", color=c, lw=1.0,
                         label="shaft {}: nominal".format(sid))
            axes[1].plot(n, sy["stress_Pa"][sel][order] / 1e6, "-o", ms=3.5, color=c,
                         label="shaft {}: synthesized".format(sid))
            if sid in stress_order:
                axes[1].plot(stress_order[sid][0], stress_order[sid][1] / 1e6, ":", color=c, lw=1.3,
                             label="shaft {}: largest order".format(sid))
            if ice:
                axes[2].plot(n, sy["ice_torque_Nm"][sel][order] / 1e3, "-o", ms=3.5, color=c,
                             label="shaft {}".format(sid))
        axes[0].set_ylabel("Torque [kNm]")
        axes[0].set_title("Alternating torque and nominal torque", loc="left")
        axes[1].set_ylabel("Stress [MPa]")
        axes[1].set_title("Alternating stress", loc="left")
        if ice:
            axes[2].set_ylabel("Torque [kNm]")
            axes[2].set_title("Propeller ice torque", loc="left")
        for ax in axes:
            ax.set_ylim(bottom=0)
            ax.legend(loc="upper left", bbox_to_anchor=(1.01, 1.0), borderaxespad=0.0)
        axes[-1].set_xlabel("Speed of the load case [rpm]")
        fig.suptitle("Response over speed: {}".format(results.title))
        return _save(fig, path)
