#include "input/ImportInputFile.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/Log.h"
#include "input/InputReader.h"
#include "input/InputSections.h"
#include "base/StringOperation.h"

namespace qm {

bool InputReader::next_line() {
    ++line_counter;
    const bool ok = read_text_line(in, line);
    STRINGOPERATION::STRINGDELETETAB(line);
    return ok;
}

bool InputReader::fail(const std::string& message) const {
    ctx.log_append(LOG::with_line_number(message, line_counter));
    return false;
}

namespace IMPORTINPUTFILE {

namespace {

// The first word of a line, in capitals.
std::string keyword_of(const std::string& line) {
    std::string word = line;
    STRINGOPERATION::STRINGFIRSTWORD(word);
    STRINGOPERATION::STRINGUPCASE(word);
    return STRINGOPERATION::trimmed(word);
}

bool is_blank_line(const std::string& line) { return line.find_first_not_of(' ') == std::string::npos; }

void allocate_tables(ModelTables& t, const std::array<int, NKINDS>& count, int nComponent) {
    t.deallocate_all();
    auto size = [&](auto& table, Kind k) {
        if (count[k] > 0) table.allocate(count[k]);
    };
    size(t.MASS_TABLE, INERTIA);
    size(t.SHAFT_TABLE, SHAFT);
    size(t.VISCOUSDAMPER_TABLE, VISCOUSDAMPER);
    size(t.RUBBERDAMPER_TABLE, RUBBERDAMPER);
    size(t.STEELSPRINGDAMPER_TABLE, STEELSPRINGDAMPER);
    size(t.LINEARCOUPLING_TABLE, LINEARCOUPLING);
    size(t.PROGRESSIVECOUPLING_TABLE, PROGRESSIVECOUPLING);
    size(t.GEISLINGERCOUPLING_TABLE, GEISLINGERCOUPLING);
    size(t.DIESEL_TABLE, DIESEL);
    size(t.ELECTRICMOTOR_TABLE, ELECTRICMOTOR);
    size(t.GASTURBINE_TABLE, GASTURBINE);
    size(t.STEAMTURBINE_TABLE, STEAMTURBINE);
    size(t.PROPELLER_TABLE, PROPELLER);
    size(t.GENERATOR_TABLE, GENERATOR);
    size(t.CENTRIFUGALPUMP_TABLE, CENTRIFUGALPUMP);
    size(t.RECIPROCATINGPUMP_TABLE, RECIPROCATINGPUMP);
    if (nComponent > 0) t.LOADCASE_TABLE.allocate(nComponent);
}

// The sizing pass. False after an error, which is logged.
bool size_tables(RunContext& ctx, const std::string& filename, ModelTables& tables, std::array<int, NKINDS>& count,
                 int& nLoadCase) {
    std::ifstream in;
    open_text_file(in, filename);
    count.fill(0);
    std::string line;
    bool ok = read_text_line(in, line);
    STRINGOPERATION::STRINGDELETETAB(line);
    std::string word = keyword_of(line);
    while (ok && word != "LOADCASE") {
        if (word == "OUTPUTANGLEBASEDRESULTS") ctx.OUTPUTANGLEBASEDRESULTS = true;
        for (int k = 0; k < NKINDS; ++k)
            if (word == KEYWORDS[static_cast<std::size_t>(k)]) ++count[static_cast<std::size_t>(k)];
        ok = read_text_line(in, line);
        STRINGOPERATION::STRINGDELETETAB(line);
        word = keyword_of(line);
    }
    int nComponent = 0;
    for (int k = VISCOUSDAMPER; k < NKINDS; ++k) nComponent += count[static_cast<std::size_t>(k)];
    allocate_tables(tables, count, nComponent);

    nLoadCase = 0;
    if (ok && word == "LOADCASE") {
        if (nComponent == 0) {
            ctx.log_append("Error occurs when reading loadcase settings data : No load setting defined");
            return false;
        }
        int rows = 0;
        while (read_text_line(in, line)) {
            STRINGOPERATION::STRINGDELETETAB(line);
            if (!is_blank_line(line)) ++rows;
        }
        nLoadCase = rows - 2;  // the two head lines of the table
    }
    return true;
}

// The filling pass. False after an error, which is logged.
bool fill_tables(InputReader& reader, const std::array<int, NKINDS>& counted) {
    const std::array<SectionReader, NKINDS> sections = section_readers();
    // Sections are tested in this order; PROPELLERICE belongs to the propeller before it.
    constexpr std::array<Kind, NKINDS> order = {
        INERTIA, SHAFT, VISCOUSDAMPER, RUBBERDAMPER, STEELSPRINGDAMPER, LINEARCOUPLING,
        PROGRESSIVECOUPLING, GEISLINGERCOUPLING, ELECTRICMOTOR, GENERATOR, CENTRIFUGALPUMP,
        GASTURBINE, STEAMTURBINE, DIESEL, RECIPROCATINGPUMP, PROPELLER};
    std::array<int, NKINDS> row{};

    bool ok = reader.next_line();
    reader.values = reader.line;
    std::string word = keyword_of(reader.line);
    while (ok && word != "LOADCASE") {
        bool matched = false;
        for (Kind k : order) {
            if (word != KEYWORDS[static_cast<std::size_t>(k)]) continue;
            matched = true;
            const int r = ++row[static_cast<std::size_t>(k)];
            // The sizing pass counts sections up to the first LOADCASE line. A section that
            // took that line as a file name lets the loop run on into lines it never counted.
            if (r > counted[static_cast<std::size_t>(k)])
                return reader.fail("Error occurs when reading \"" + std::string(KEYWORDS[static_cast<std::size_t>(k)]) +
                                   "\" behind the LOADCASE line in input file line ");
            STRINGOPERATION::STRINGWITHOUTFIRSTWORD(reader.values);
            const SectionReader read = sections[static_cast<std::size_t>(k)];
            if (read != nullptr && !read(reader, r)) return false;
            break;
        }
        if (!matched && word == "PROPELLERICE") {
            STRINGOPERATION::STRINGWITHOUTFIRSTWORD(reader.values);
            const SectionReader read = propeller_ice_reader();
            if (read != nullptr && !read(reader, row[PROPELLER])) return false;
        }
        ok = reader.next_line();
        reader.values = reader.line;
        word = keyword_of(reader.line);
    }
    if (ok && word == "LOADCASE") {
        const SectionReader read = load_case_reader();
        if (read != nullptr && !read(reader, 0)) return false;
    }
    return true;
}

}  // namespace

void ISFILEACCESSABLE(const std::string& FILENAME, bool& ISACCESSABLE) {
    // Only a regular file is accessible: a pipe would block the open, a device never ends.
    std::ifstream probe;
    ISACCESSABLE = open_text_file(probe, STRINGOPERATION::trimmed(FILENAME));
}

void READINPUTFILE(RunContext& ctx, const std::string& FILENAME, ModelTables& tables, bool& ISSUCCESS) {
    ISSUCCESS = false;
    const std::string filename = STRINGOPERATION::trimmed(FILENAME);
    ctx.OUTPUTANGLEBASEDRESULTS = false;

    if (!ctx.log_create()) {
        std::cerr << "Quillmark: the log cannot be written in the result directory \"" << ctx.RESULTFILEDIR()
                  << "\"; it must exist and be writable.\n";
        return;
    }

    bool accessible = false;
    ISFILEACCESSABLE(filename, accessible);
    if (!accessible) {
        ctx.log_append("error occurs when accessing the input file" + filename);
        return;
    }

    int nLoadCase = 0;
    std::array<int, NKINDS> counted{};
    if (!size_tables(ctx, filename, tables, counted, nLoadCase)) return;
    std::ifstream in;
    open_text_file(in, filename);
    InputReader reader(ctx, in, tables);
    reader.nLoadCase = nLoadCase;
    reader.model_dir = std::filesystem::path(filename).parent_path().string();
    if (!fill_tables(reader, counted)) return;
    in.close();
    ISSUCCESS = true;
    complete_after_reading(reader, ISSUCCESS);
}

}  // namespace IMPORTINPUTFILE
}  // namespace qm
