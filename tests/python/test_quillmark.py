"""The Python package against real runs of the bundled examples."""

import os
import shutil
import subprocess
import sys

import numpy as np
import pandas as pd
import pytest

import quillmark
import quillmark.plot

EXAMPLES = os.environ.get("QM_EXAMPLES_DIR", os.path.join(os.path.dirname(__file__), "..", "..", "examples"))
CLI = os.environ.get("QM_CLI_PROGRAM", "quillmark")
TWO_STROKE = os.path.join(EXAMPLES, "two-stroke-main-engine.qmk")
GEARED = os.path.join(EXAMPLES, "geared-four-stroke", "geared-four-stroke.qmk")


def records(path):
    return np.fromfile(path, dtype="<f8")


@pytest.fixture(scope="module", params=[TWO_STROKE, GEARED], ids=["two-stroke", "geared"])
def example(request, tmp_path_factory):
    out = tmp_path_factory.mktemp(os.path.basename(request.param).split(".")[0])
    run = quillmark.run(request.param, out, calculation_type=3)
    return request.param, out, run


def test_run_gives_validity_and_the_log(example):
    model, out, run = example
    assert run.valid is True
    assert isinstance(run.log, list)
    assert (out / "NaturalFrequency.bin").exists()
    # an invalid model is a result with its findings, not an exception
    bad = out / "bad"
    bad.mkdir(exist_ok=True)
    (bad / "m.qmk").write_text("INERTIA 1 1.0 x 0 0\n")
    valid, log = quillmark.run(bad / "m.qmk", bad, 1)
    assert valid is False and any(line.startswith("Error occurs when reading") for line in log)
    with pytest.raises(quillmark.QuillmarkError, match="missing"):
        quillmark.run(bad / "none.qmk", bad)


def test_frames_have_the_documented_columns_and_the_file_values(example):
    model, out, _ = example
    results = quillmark.read_results(model, out)
    frames = results.to_frame()
    nf = frames["natural_frequencies"]
    assert list(nf.columns) == ["mode", "omega_rad_s", "frequency_Hz", "frequency_cpm"]
    np.testing.assert_array_equal(nf["omega_rad_s"].to_numpy(), records(out / "NaturalFrequency.bin"))

    rd = frames["relative_deflection"]
    assert list(rd.columns) == ["mode", "inertia_id", "relative_deflection"]
    np.testing.assert_array_equal(rd["relative_deflection"].to_numpy(), records(out / "RelativeDeflection.bin"))
    ids = [i["id"] for i in results.model["inertias"]]
    assert rd["inertia_id"].tolist()[: len(ids)] == ids

    vs = frames["vector_sums"]
    assert list(vs.columns) == ["engine_id", "mode", "order", "vector_sum", "speed_rpm", "angle_rad"]
    np.testing.assert_array_equal(vs["speed_rpm"].to_numpy(), records(out / "VectorSumRpm.bin"))
    assert (vs.groupby("mode")["vector_sum"].max() == 1.0).all()

    # numeric columns are views of the reader's memory, not copies, and read-only
    omega = results["natural_frequencies"]["omega_rad_s"]
    assert not omega.flags.owndata and not omega.flags.writeable

    if "torque" in results:  # the forced calculation ran
        tq = frames["torque"]
        assert list(tq.columns) == ["load_case", "speed_rpm", "kind", "unit_id", "order", "shaft_id",
                                    "amplitude_Nm", "angle_rad", "re", "im"]
        diesel = tq[tq["kind"] == "Diesel"]
        np.testing.assert_array_equal(diesel["amplitude_Nm"].to_numpy(), records(out / "DieselTorque.bin")[0::4])
        sy = frames["shaft_synthesis"]
        np.testing.assert_array_equal(sy["torque_Nm"].to_numpy(), records(out / "SynthesisTorque.bin"))


def test_missing_or_short_file_raises_a_clear_error(tmp_path):
    out = tmp_path / "r"
    assert quillmark.run(TWO_STROKE, out, 1).valid
    (out / "RelativeTorque.bin").unlink()
    with pytest.raises(quillmark.QuillmarkError, match="RelativeTorque.bin.*missing"):
        quillmark.read_results(TWO_STROKE, out)
    quillmark.run(TWO_STROKE, out, 1)
    with open(out / "NaturalFrequency.bin", "r+b") as f:
        f.truncate(8)
    with pytest.raises(quillmark.QuillmarkError, match="NaturalFrequency.bin.*short"):
        quillmark.read_results(TWO_STROKE, out)
    with pytest.raises(quillmark.QuillmarkError, match="Error occurs"):
        (tmp_path / "bad.qmk").write_text("SHAFT 1 1 2 x\n")
        quillmark.read_results(tmp_path / "bad.qmk", out)


def test_each_plot_kind_writes_a_non_empty_png(example, tmp_path):
    model, out, _ = example
    results = quillmark.read_results(model, out)
    for kind in ("campbell", "modes"):
        png = tmp_path / (kind + ".png")
        fig = getattr(quillmark.plot, kind)(results, png)
        assert fig.axes and png.stat().st_size > 10000
    png = tmp_path / "response.png"
    if "shaft_synthesis" in results:
        quillmark.plot.response(results, png)
        assert png.stat().st_size > 10000
        with pytest.raises(quillmark.QuillmarkError, match="no shaft"):
            quillmark.plot.response(results, png, shafts=[987654])
    else:
        with pytest.raises(quillmark.QuillmarkError, match="forced"):
            quillmark.plot.response(results, png)


def test_plot_from_the_command_line(example, tmp_path):
    model, out, _ = example
    svg = tmp_path / "modes.svg"
    done = subprocess.run([sys.executable, "-m", "quillmark", "plot", "modes", model, str(out), "-o", str(svg)],
                          capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    assert svg.read_text().lstrip().startswith("<?xml")
    done = subprocess.run([sys.executable, "-m", "quillmark", "plot", "campbell", model, str(tmp_path), "-o",
                           str(tmp_path / "x.png")], capture_output=True, text=True)
    assert done.returncode == 1 and "SystemInfo.bin" in done.stderr


@pytest.mark.skipif(not shutil.which(CLI) and not os.path.exists(CLI), reason="the command-line tool is not built")
def test_exported_csv_reads_back_equal_to_the_binary_files(example, tmp_path):
    model, out, _ = example
    done = subprocess.run([CLI, "export", model, str(out), "-o", str(tmp_path / "csv")], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    results = quillmark.read_results(model, out)
    for name in results.tables:
        csv = pd.read_csv(tmp_path / "csv" / (name + ".csv"), float_precision="round_trip")
        frame = results.to_frame(name)
        assert list(csv.columns) == list(frame.columns)
        for column in frame.columns:
            if column == "kind":
                assert csv[column].tolist() == frame[column].astype(str).tolist()
            else:
                np.testing.assert_array_equal(csv[column].to_numpy(), frame[column].to_numpy())
    done = subprocess.run([CLI, "export", model, str(out), "--format", "json", "-o", str(tmp_path / "json")],
                          capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    import json

    doc = json.loads((tmp_path / "json" / "results.json").read_text())
    nf = doc["tables"]["natural_frequencies"]
    assert nf["column_order"] == ["mode", "omega_rad_s", "frequency_Hz", "frequency_cpm"]
    assert nf["columns"]["omega_rad_s"][1:] == records(out / "NaturalFrequency.bin").tolist()[1:]


def test_theoretical_pressure_matches_the_command_line():
    args = dict(bore=0.32, stroke=0.4, conrod_ratio=0.25, compression_ratio=15.0, speed=750.0, power=250e3,
                pmax=180e5, pcomp=140e5, charge_air_pressure=3.5e5, charge_air_temperature=45.0,
                thermal_efficiency=0.48, mechanical_efficiency=0.95, ignition=-5.0, end_of_combustion=60.0,
                exhaust_opens=130.0)
    curve = quillmark.theoretical_pressure(**args)
    assert len(curve.crank_angle_deg) == 720 and curve.crank_angle_deg[180] == 0.0
    assert curve.pressure_Pa.max() > 100e5 and curve.mean_indicated_pressure_Pa > 0.0
    if shutil.which(CLI) or os.path.exists(CLI):
        done = subprocess.run([CLI, "pressure", "--bore", "320", "--stroke", "400", "--conrod-ratio", "0.25",
                               "--compression-ratio", "15", "--speed", "750", "--power", "250", "--pmax", "180",
                               "--pcomp", "140", "--charge-air-pressure", "3.5", "--charge-air-temperature", "45",
                               "--thermal-efficiency", "48", "--mechanical-efficiency", "95", "--ignition", "-5",
                               "--end-of-combustion", "60", "--exhaust-opens", "130"],
                              capture_output=True, text=True)
        assert done.returncode == 0, done.stderr
        rows = [line.split(",") for line in done.stdout.splitlines()[1:] if not line.startswith("#")]
        np.testing.assert_allclose(curve.pressure_Pa / 1e5, [float(p) for _, p in rows], atol=1e-6)
