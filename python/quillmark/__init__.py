"""Torsional vibration of marine propulsion and auxiliary shaft lines.

    import quillmark
    run = quillmark.run("model.qmk", "out", calculation_type=3)
    results = quillmark.read_results("model.qmk", "out")
    frames = results.to_frame()              # one pandas DataFrame per result table
    quillmark.plot.campbell(results, "campbell.png")

Errors of the library (a model that does not read, a missing or short result file) are raised
as QuillmarkError with the library's message.
"""

import os
from collections import namedtuple

from . import _quillmark
from ._quillmark import QuillmarkError

__all__ = ["run", "read_results", "theoretical_pressure", "Results", "RunResult", "PressureCurve", "QuillmarkError"]

RunResult = namedtuple("RunResult", "valid log")
RunResult.__doc__ = "Outcome of a run: whether the input is valid, and the lines of its log."

PressureCurve = namedtuple("PressureCurve", "crank_angle_deg pressure_Pa mean_indicated_pressure_Pa converged")
PressureCurve.__doc__ = ("Pressure over one working cycle: crank angle in degrees from firing top dead centre, "
                         "absolute pressure in Pa, the mean indicated pressure in Pa and whether the iteration "
                         "converged.")


def run(model, result_dir, calculation_type=1, threads=0):
    """Runs one calculation of the model file into result_dir (created when missing).

    calculation_type: 0 read and check, 1 free vibration, 2 forced vibration, 3 both.
    threads: threads of the forced load cases, 0 for the machine's cores; the result files
    are the same for any number.
    Returns RunResult(valid, log). An invalid model is a result, not an error: its findings
    are in the log. Raises QuillmarkError when the run can't start (missing model file,
    unusable result directory).
    """
    valid, log = _quillmark.run(os.fspath(model), os.fspath(result_dir), int(calculation_type), int(threads))
    return RunResult(valid, log)


class Results:
    """The labelled results of a run: tables of named columns (numpy arrays sharing the
    reader's memory, read-only) and what they refer to in the model.

    Tables present depend on the run: natural_frequencies, relative_deflection,
    relative_torque, vector_sums (free); deflection, velocity, acceleration, torque, stress,
    damping_torque (per order), inertia_synthesis, shaft_synthesis, inertia_curves,
    shaft_curves, propeller_shaft_marks (forced).
    """

    def __init__(self, raw, model_path, result_dir):
        self._raw = raw
        self.model_path = os.fspath(model_path)
        self.result_dir = os.fspath(result_dir)
        self.model = raw.model

    @property
    def title(self):
        return self._raw.title

    @property
    def tables(self):
        return list(self._raw.table_names)

    def __contains__(self, name):
        return name in self._raw.table_names

    def __getitem__(self, name):
        """The columns of a table: a dict of column name to numpy array (texts as lists)."""
        return self._raw.columns(name)

    def files(self, name):
        """The result files the table was read from."""
        return list(self._raw.files(name))

    def to_frame(self, name=None):
        """A pandas DataFrame of one table, or a dict of all of them when name is None."""
        import pandas as pd

        if name is None:
            return {n: self.to_frame(n) for n in self.tables}
        columns = self[name]
        data = {}
        for column, values in columns.items():
            data[column] = pd.Categorical(values) if column == "kind" else values
        return pd.DataFrame(data, copy=False)

    def __repr__(self):
        return "<quillmark.Results of {!r}: {}>".format(self.title, ", ".join(self.tables))


def read_results(model, result_dir):
    """Reads the result files of a run of `model` in `result_dir` into labelled tables."""
    raw = _quillmark.read_results(os.fspath(model), os.fspath(result_dir))
    return Results(raw, model, result_dir)


def theoretical_pressure(*, bore, stroke, conrod_ratio, compression_ratio, speed, power, pmax, pcomp,
                         charge_air_pressure, charge_air_temperature, thermal_efficiency,
                         mechanical_efficiency=1.0, strokes=4, misfiring=False, rated_power=None,
                         rated_speed=None, form_factor=1.0, ignition=0.0, end_of_combustion=0.0,
                         exhaust_opens=0.0, inlet_opens=0.0, inlet_closes=0.0):
    """Theoretical pressure curve of one cylinder, in SI units.

    bore, stroke in m; speed in rpm; power of this cylinder in W; pmax and pcomp in Pa gauge
    and charge_air_pressure in Pa absolute, all at the reference point (rated_power,
    rated_speed: the operating point itself when not given); charge_air_temperature in
    degrees C; efficiencies as fractions; angles in degrees after firing top dead centre
    (the inlet angles serve two-stroke engines only). Returns a PressureCurve.
    """
    d = _quillmark.CylinderPressureData()
    d.NSTROKE = int(strokes)
    d.MISFIRING = bool(misfiring)
    d.BORE, d.STROKE, d.CONRODRATIO, d.COMPRATIO = bore, stroke, conrod_ratio, compression_ratio
    d.SPEED, d.POWER = speed, power
    d.P0 = power if rated_power is None else rated_power
    d.N0 = speed if rated_speed is None else rated_speed
    d.PMAX, d.PCOMP, d.PCHARGEAIR, d.TCHARGEAIR = pmax, pcomp, charge_air_pressure, charge_air_temperature
    d.TE, d.ME, d.FORMFACTOR = thermal_efficiency, mechanical_efficiency, form_factor
    d.ANGLEIGNITION, d.ANGLEENDOFCOMB, d.ANGLEEXHAUSTSTART = ignition, end_of_combustion, exhaust_opens
    d.ANGLEINLETSTART, d.ANGLEINLETCLOSE = inlet_opens, inlet_closes
    return PressureCurve(*_quillmark.theoretical_pressure(d))


def __getattr__(name):
    # quillmark.plot is imported on first use, so the package works without matplotlib.
    if name == "plot":
        import importlib

        return importlib.import_module(".plot", __name__)
    raise AttributeError(name)
