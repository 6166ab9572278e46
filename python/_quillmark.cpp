// The extension module of the Python package: a run through the library's entry, the result
// reader and the theoretical cylinder pressure. The pure-Python modules beside it give them
// their final shape (named tuples, DataFrames, plots).
//
// Numeric columns of the results reach Python as numpy arrays over the reader's own vectors:
// no copy is made, and each array keeps the results object alive through its base.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "excitation/TheoreticalCylinderPressure.h"
#include "excitation/TheoreticalPressure.h"
#include "quillmark/quillmark.h"
#include "results/ResultReader.h"

namespace py = pybind11;
namespace fs = std::filesystem;
using qm::RESULTS::Column;
using qm::RESULTS::Results;

namespace {

std::vector<std::int32_t> codes(const std::string& text) {
    std::vector<std::int32_t> c;
    for (unsigned char ch : text) c.push_back(ch);
    return c;
}

// One calculation through the exported entry, as a host program makes it. The result
// directory is created when missing; the library itself never creates it. `threads` works
// the forced load cases (0 the machine's cores).
py::tuple run(const std::string& model, const std::string& result_dir, int calculation_type, int threads) {
    std::error_code ec;
    if (!fs::is_regular_file(model, ec)) throw qm::RESULTS::ResultError("model file " + model + " is missing");
    fs::create_directories(result_dir, ec);
    if (!fs::is_directory(result_dir, ec))
        throw qm::RESULTS::ResultError("result directory " + result_dir + " can't be created");
    const fs::path path = fs::absolute(model);
    const auto dir = codes(path.parent_path().string());
    const auto name = codes(path.filename().string());
    const auto result = codes(fs::absolute(result_dir).string());
    const auto dir_length = static_cast<std::int32_t>(dir.size());
    const auto name_length = static_cast<std::int32_t>(name.size());
    const auto result_length = static_cast<std::int32_t>(result.size());
    std::int32_t valid = 0;
    const std::int32_t type = calculation_type;
    const std::int32_t nthreads = threads;
    {
        py::gil_scoped_release free_the_interpreter;
        QUILLMARKSOLVERTHREADS(dir.data(), &dir_length, name.data(), &name_length, result.data(), &result_length,
                               &valid, &type, &nthreads);
    }
    const fs::path log = fs::path(result_dir) / "Quillmark.log";
    if (!fs::exists(log, ec))
        throw qm::RESULTS::ResultError("the run left no log in " + result_dir +
                                       ": the directory must be writable and its path at most 1000 characters");
    std::vector<std::string> lines;
    std::ifstream in(log);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return py::make_tuple(valid == 1, lines);
}

// A column as a numpy array sharing the reader's memory (texts as a list of str).
py::object column_array(const Column& c, py::handle owner) {
    switch (c.type) {
        case Column::Type::Integer:
            return py::array_t<std::int32_t>({static_cast<py::ssize_t>(c.integers.size())}, {sizeof(std::int32_t)},
                                             c.integers.data(), owner);
        case Column::Type::Real:
            return py::array_t<double>({static_cast<py::ssize_t>(c.reals.size())}, {sizeof(double)}, c.reals.data(),
                                       owner);
        case Column::Type::Text: return py::cast(c.texts);
    }
    return py::none();
}

py::dict table_columns(py::object self, const std::string& name) {
    const auto& results = self.cast<const Results&>();
    const auto* table = results.find(name);
    if (table == nullptr) throw py::key_error("no result table '" + name + "'");
    py::dict columns;  // insertion order is the table's column order
    for (const Column& c : table->columns) {
        py::object a = column_array(c, self);
        // Views of the reader's vectors are read-only: the results stay as the files hold them.
        if (py::isinstance<py::array>(a)) a.attr("flags").attr("writeable") = false;
        columns[py::str(c.name)] = a;
    }
    return columns;
}

py::dict model_dict(const qm::RESULTS::ModelInfo& m) {
    py::dict d;
    d["title"] = m.title;
    py::list inertias, shafts, sources;
    for (const auto& i : m.inertias)
        inertias.append(py::dict(py::arg("row") = i.row, py::arg("id") = i.ID, py::arg("mass_type") = i.MASSTYPE,
                                 py::arg("component_type") = i.COMPONENTTYPE, py::arg("component_id") = i.COMPONENTID,
                                 py::arg("speed_ratio") = i.RPMRATIO));
    for (const auto& s : m.shafts)
        shafts.append(py::dict(py::arg("row") = s.row, py::arg("id") = s.ID, py::arg("shaft_type") = s.SHAFTTYPE,
                               py::arg("component_type") = s.COMPONENTTYPE, py::arg("component_id") = s.COMPONENTID,
                               py::arg("from_inertia") = s.ORGNODE, py::arg("to_inertia") = s.DESNODE,
                               py::arg("outer_diameter_m") = s.OUTERDI, py::arg("inner_diameter_m") = s.INNERDI));
    for (const auto& s : m.sources)
        sources.append(py::dict(py::arg("kind") = s.kind, py::arg("row") = s.row, py::arg("id") = s.ID,
                                py::arg("orders") = s.orders, py::arg("node") = s.node,
                                py::arg("speed_ratio") = s.RPMRATIO));
    d["inertias"] = inertias;
    d["shafts"] = shafts;
    d["sources"] = sources;
    d["load_case_speeds_rpm"] = m.load_case_speeds;
    d["has_ice"] = m.has_ice;
    return d;
}

py::tuple theoretical_pressure(const qm::CylinderPressureData& d) {
    std::vector<double> curve(qm::THEORETICALPRESSURE::CYLPRESSURES_SIZE, 0.0);
    double mip = 0.0;
    const bool converged = qm::theoretical_cylinder_pressure(d, curve.data(), mip);
    const int points = d.NSTROKE == 2 ? 360 : 720;
    py::array_t<double> angle(points), pressure(points);
    auto a = angle.mutable_unchecked<1>();
    auto p = pressure.mutable_unchecked<1>();
    for (int j = 1; j <= points; ++j) {
        a(j - 1) = j - 181;
        p(j - 1) = curve[static_cast<std::size_t>(j - 1)];
    }
    return py::make_tuple(angle, pressure, mip, converged);
}

}  // namespace

PYBIND11_MODULE(_quillmark, m) {
    m.doc() = "Torsional vibration of marine shaft lines: the compiled part of the quillmark package";

    static py::exception<qm::RESULTS::ResultError> error(m, "QuillmarkError", PyExc_RuntimeError);
    py::register_exception_translator([](std::exception_ptr p) {
        try {
            if (p) std::rethrow_exception(p);
        } catch (const qm::RESULTS::ResultError& e) {
            error(e.what());
        } catch (const fs::filesystem_error& e) {
            error(e.what());
        }
    });

    m.def("run", &run, py::arg("model"), py::arg("result_dir"), py::arg("calculation_type") = 1,
          py::arg("threads") = 0, "Runs a calculation; returns (valid, log lines).");

    py::class_<Results, std::shared_ptr<Results>>(m, "Results")
        .def_property_readonly("title", [](const Results& r) { return r.model.title; })
        .def_property_readonly("model", [](const Results& r) { return model_dict(r.model); })
        .def_property_readonly("table_names",
                               [](const Results& r) {
                                   std::vector<std::string> names;
                                   for (const auto& t : r.tables) names.push_back(t.name);
                                   return names;
                               })
        .def("columns", &table_columns, py::arg("name"), "The columns of a table as numpy arrays, in order.")
        .def(
            "files",
            [](const Results& r, const std::string& name) {
                const auto* t = r.find(name);
                if (t == nullptr) throw py::key_error("no result table '" + name + "'");
                return t->files;
            },
            py::arg("name"), "The result files a table was read from.");

    m.def(
        "read_results",
        [](const std::string& model, const std::string& result_dir) {
            return std::make_shared<Results>(qm::RESULTS::read_results(model, result_dir));
        },
        py::arg("model"), py::arg("result_dir"));

    py::class_<qm::CylinderPressureData>(m, "CylinderPressureData")
        .def(py::init<>())
        .def_readwrite("P0", &qm::CylinderPressureData::P0)
        .def_readwrite("N0", &qm::CylinderPressureData::N0)
        .def_readwrite("MISFIRING", &qm::CylinderPressureData::MISFIRING)
        .def_readwrite("NSTROKE", &qm::CylinderPressureData::NSTROKE)
        .def_readwrite("BORE", &qm::CylinderPressureData::BORE)
        .def_readwrite("STROKE", &qm::CylinderPressureData::STROKE)
        .def_readwrite("CONRODRATIO", &qm::CylinderPressureData::CONRODRATIO)
        .def_readwrite("COMPRATIO", &qm::CylinderPressureData::COMPRATIO)
        .def_readwrite("PCHARGEAIR", &qm::CylinderPressureData::PCHARGEAIR)
        .def_readwrite("TCHARGEAIR", &qm::CylinderPressureData::TCHARGEAIR)
        .def_readwrite("SPEED", &qm::CylinderPressureData::SPEED)
        .def_readwrite("POWER", &qm::CylinderPressureData::POWER)
        .def_readwrite("PMAX", &qm::CylinderPressureData::PMAX)
        .def_readwrite("PCOMP", &qm::CylinderPressureData::PCOMP)
        .def_readwrite("TE", &qm::CylinderPressureData::TE)
        .def_readwrite("ME", &qm::CylinderPressureData::ME)
        .def_readwrite("FORMFACTOR", &qm::CylinderPressureData::FORMFACTOR)
        .def_readwrite("ANGLEIGNITION", &qm::CylinderPressureData::ANGLEIGNITION)
        .def_readwrite("ANGLEENDOFCOMB", &qm::CylinderPressureData::ANGLEENDOFCOMB)
        .def_readwrite("ANGLEEXHAUSTSTART", &qm::CylinderPressureData::ANGLEEXHAUSTSTART)
        .def_readwrite("ANGLEINLETSTART", &qm::CylinderPressureData::ANGLEINLETSTART)
        .def_readwrite("ANGLEINLETCLOSE", &qm::CylinderPressureData::ANGLEINLETCLOSE);

    m.def("theoretical_pressure", &theoretical_pressure, py::arg("data"),
          "Pressure curve of one cylinder: (crank angle deg, pressure Pa, mean indicated pressure Pa, converged).");
}
