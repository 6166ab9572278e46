#include "ExportCommand.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

namespace qm::cli {

namespace {

using RESULTS::Column;

void put_real(std::ostream& out, double v) {
    char buffer[64];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v);
    out.write(buffer, r.ptr - buffer);
}

void put_cell(std::ostream& out, const Column& c, std::size_t i) {
    switch (c.type) {
        case Column::Type::Integer: out << c.integers[i]; break;
        case Column::Type::Real: put_real(out, c.reals[i]); break;
        case Column::Type::Text: out << c.texts[i]; break;
    }
}

nlohmann::json column_json(const Column& c) {
    nlohmann::json values = nlohmann::json::array();
    switch (c.type) {
        case Column::Type::Integer:
            for (auto v : c.integers) values.push_back(v);
            break;
        case Column::Type::Real:
            for (double v : c.reals) values.push_back(std::isfinite(v) ? nlohmann::json(v) : nlohmann::json());
            break;
        case Column::Type::Text:
            for (const auto& v : c.texts) values.push_back(v);
            break;
    }
    return values;
}

}  // namespace

void write_csv(std::ostream& out, const RESULTS::ResultTable& table) {
    for (std::size_t k = 0; k < table.columns.size(); ++k) out << (k ? "," : "") << table.columns[k].name;
    out << "\n";
    for (std::size_t i = 0; i < table.rows(); ++i) {
        for (std::size_t k = 0; k < table.columns.size(); ++k) {
            if (k) out << ',';
            put_cell(out, table.columns[k], i);
        }
        out << '\n';
    }
}

void write_json(std::ostream& out, const RESULTS::Results& results) {
    nlohmann::json doc;
    doc["model"] = results.model.title;
    doc["load_case_speeds_rpm"] = results.model.load_case_speeds;
    nlohmann::json tables = nlohmann::json::object();
    for (const auto& t : results.tables) {
        nlohmann::json columns = nlohmann::json::object();
        // Keep the column order of the table: nlohmann's object sorts its keys, so the
        // order is given beside them.
        nlohmann::json order = nlohmann::json::array();
        for (const auto& c : t.columns) {
            columns[c.name] = column_json(c);
            order.push_back(c.name);
        }
        tables[t.name] = {{"files", t.files}, {"column_order", order}, {"columns", columns}};
    }
    doc["tables"] = tables;
    out << doc.dump() << "\n";
}

void add_export_command(CLI::App& app, int& exit_code) {
    auto* cmd = app.add_subcommand("export", "Write the results of a run as labelled CSV tables or one JSON document");
    auto model = std::make_shared<std::string>();
    auto results = std::make_shared<std::string>();
    auto format = std::make_shared<std::string>("csv");
    auto out = std::make_shared<std::string>();
    cmd->add_option("MODEL", *model, "Input file of the model the results belong to")->required();
    cmd->add_option("RESULTDIR", *results, "Result directory of the run")->required();
    cmd->add_option("--format", *format, "csv (one file per result family, default) or json (one document)")
        ->check(CLI::IsMember({"csv", "json"}));
    cmd->add_option("-o,--output", *out, "Folder for the exported files; created when missing (default: RESULTDIR/export)");
    cmd->callback([=, &exit_code] {
        try {
            const RESULTS::Results r = RESULTS::read_results(*model, *results);
            const std::filesystem::path dir = out->empty() ? std::filesystem::path(*results) / "export" : std::filesystem::path(*out);
            std::filesystem::create_directories(dir);
            std::vector<std::filesystem::path> written;
            if (*format == "json") {
                written.push_back(dir / "results.json");
                std::ofstream f(written.back(), std::ios::binary);
                write_json(f, r);
                if (!f) throw RESULTS::ResultError("can't write " + written.back().string());
            } else {
                for (const auto& t : r.tables) {
                    written.push_back(dir / (t.name + ".csv"));
                    std::ofstream f(written.back(), std::ios::binary);
                    write_csv(f, t);
                    if (!f) throw RESULTS::ResultError("can't write " + written.back().string());
                }
            }
            for (const auto& p : written) std::cout << p.string() << "\n";
            exit_code = 0;
        } catch (const std::exception& e) {
            std::cerr << "quillmark export: " << e.what() << "\n";
            exit_code = 1;
        }
    });
}

}  // namespace qm::cli
