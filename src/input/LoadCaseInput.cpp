#include "input/LoadCaseInput.h"

#include <array>
#include <fstream>
#include <string_view>

#include "base/Format.h"
#include "base/Log.h"
#include "input/ImportInputFile.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm::IMPORTINPUTFILE {

namespace {

constexpr const char* SETTINGS_MESSAGE = "Error occurs when reading loadcase settings in input file line ";
constexpr const char* SPEED_MESSAGE = "Error occurs when reading \"LoadCase_Speed\" in input file line ";
constexpr const char* POWER_MESSAGE =
    "Error occurs when reading \"Id, SubId, LoadCase_Power(iLoadCase,:)\" in input file line ";
constexpr const char* GENSET_VALUES_MESSAGE =
    "Error occurs when reading \"DieselId, PressureMax, PressureComp\" in genset file line ";
constexpr const char* GENSET_ROWS_MESSAGE = "Error occurs when reading genset file line ";

constexpr double KW_TO_W = 1000.0;
constexpr double BAR_TO_PA = 100000.0;

// A column word of the head line: the component kind it stands for, the text that names
// the kind in a message, and the row of the component with a given ID (0 when none).
struct ColumnKind {
    const char* word;
    int code;
    const char* label;
    int (*find)(const ModelTables& t, int id);
};

const std::array<ColumnKind, 11> COLUMN_KINDS = {{
    {"DIESEL", CODES::COMPONENT_DIESEL, " (Diesel ",
     [](const ModelTables& t, int id) { return GLOBAL_DIESEL::GET_DIESEL_IDIESEL(t.DIESEL_TABLE, id); }},
    {"RECIPROCATINGPUMP", CODES::COMPONENT_RECIPROCATINGPUMP, " (ReciprocatingPump ",
     [](const ModelTables& t, int id) {
         return GLOBAL_RECIPROCATINGPUMP::GET_RECIPROCATINGPUMP_IRECIPROCATINGPUMP(t.RECIPROCATINGPUMP_TABLE, id);
     }},
    {"PROPELLER", CODES::COMPONENT_PROPELLER, " (Propeller ",
     [](const ModelTables& t, int id) { return GLOBAL_PROPELLER::GET_PROPELLER_IPROPELLER(t.PROPELLER_TABLE, id); }},
    {"LINEARCOUPLING", CODES::COMPONENT_LINEARCOUPLING, " (LinearCoupling ",
     [](const ModelTables& t, int id) {
         return GLOBAL_LINEARCOUPLING::GET_LINEARCOUPLING_ILINEARCOUPLING(t.LINEARCOUPLING_TABLE, id);
     }},
    {"PROGRESSIVECOUPLING", CODES::COMPONENT_PROGRESSIVECOUPLING, " (ProgressiveCoupling ",
     [](const ModelTables& t, int id) {
         return GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING(
             t.PROGRESSIVECOUPLING_TABLE, id);
     }},
    {"GEISLINGERCOUPLING", CODES::COMPONENT_GEISLINGERCOUPLING, " (GeislingerCoupling ",
     [](const ModelTables& t, int id) {
         return GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING(t.GEISLINGERCOUPLING_TABLE,
                                                                                    id);
     }},
    {"ELECTRICMOTOR", CODES::COMPONENT_ELECTRICMOTOR, " (ElectricMotor ",
     [](const ModelTables& t, int id) {
         return GLOBAL_ELECTRICMOTOR::GET_ELECTRICMOTOR_IELECTRICMOTOR(t.ELECTRICMOTOR_TABLE, id);
     }},
    {"GENERATOR", CODES::COMPONENT_GENERATOR, " (Generator ",
     [](const ModelTables& t, int id) { return GLOBAL_GENERATOR::GET_GENERATOR_IGENERATOR(t.GENERATOR_TABLE, id); }},
    {"CENTRIFUGALPUMP", CODES::COMPONENT_CENTRIFUGALPUMP, " (CentrifugalPump ",
     [](const ModelTables& t, int id) {
         return GLOBAL_CENTRIFUGALPUMP::GET_CENTRIFUGALPUMP_ICENTRIFUGALPUMP(t.CENTRIFUGALPUMP_TABLE, id);
     }},
    {"GASTURBINE", CODES::COMPONENT_GASTURBINE, " (GasTurbine ",
     [](const ModelTables& t, int id) {
         return GLOBAL_GASTURBINE::GET_GASTURBINE_IGASTURBINE(t.GASTURBINE_TABLE, id);
     }},
    {"STEAMTURBINE", CODES::COMPONENT_STEAMTURBINE, " (SteamTurbine ",
     [](const ModelTables& t, int id) {
         return GLOBAL_STEAMTURBINE::GET_STEAMTURBINE_ISTEAMTURBINE(t.STEAMTURBINE_TABLE, id);
     }},
}};

// The kind of an exact column word; null for any other word.
const ColumnKind* column_kind(std::string_view word) {
    for (const ColumnKind& kind : COLUMN_KINDS)
        if (word == kind.word) return &kind;
    return nullptr;
}

bool is_blank_line(const std::string& line) { return line.find_first_not_of(' ') == std::string::npos; }

// The next blank-separated word of `text` from `pos` on; empty when the text has no more.
std::string_view next_word(std::string_view text, std::size_t& pos) {
    while (pos < text.size() && text[pos] == ' ') ++pos;
    const std::size_t start = pos;
    while (pos < text.size() && text[pos] != ' ') ++pos;
    return text.substr(start, pos - start);
}

// The first word of a line, in capitals.
std::string first_word_upper(const std::string& line) {
    std::string word = line;
    STRINGOPERATION::STRINGFIRSTWORD(word);
    STRINGOPERATION::STRINGUPCASE(word);
    return STRINGOPERATION::trimmed(word);
}

bool fail_with(const InputReader& reader, const std::string& message, const std::string& detail) {
    reader.ctx.log_append(LOG::with_line_number(message, reader.line_counter) + detail);
    return false;
}

// The two head lines: column words and IDs into LOADCASE_TABLE. The reader stands on the
// second head line. False after an error, which is logged.
bool read_columns(InputReader& reader, std::string head, const std::string& ids) {
    STRINGOPERATION::STRINGWITHOUTFIRSTWORD(head);  // the word RPM
    LoadCaseTable& columns = reader.tables.LOADCASE_TABLE;
    std::size_t head_pos = 0;
    std::size_t id_pos = 0;
    int k = 0;
    for (std::string_view word = next_word(head, head_pos); !word.empty(); word = next_word(head, head_pos)) {
        int id = 0;
        if (!ValueReader(next_word(ids, id_pos)).read(id)) return reader.fail(SETTINGS_MESSAGE);
        const ColumnKind* kind = column_kind(word);
        if (kind == nullptr) {
            // Logged only: the reading goes on with the next column.
            reader.fail(SETTINGS_MESSAGE);
            continue;
        }
        ++k;
        if (k > row_count(columns)) return fail_with(reader, SETTINGS_MESSAGE, " : more columns than components");
        columns(k).COMPONENTTYPE = kind->code;
        columns(k).COMPONENTID = id;
        if (kind->find(reader.tables, id) == 0)
            return fail_with(reader, SETTINGS_MESSAGE, kind->label + fmt::I(id, 3) + " is not defined)");
    }
    return true;
}

// One load case line into LOADCASE_SPEED(i) and the powers, in kW, into column i of
// LOADCASE_POWER. Values behind the last row of LOADCASE_POWER are not read.
bool read_load_case(InputReader& reader, int i) {
    std::size_t pos = 0;
    if (!ValueReader(next_word(reader.line, pos)).read(reader.tables.LOADCASE_SPEED(i)))
        return reader.fail(SPEED_MESSAGE);
    Array2D<double>& power = reader.tables.LOADCASE_POWER;
    for (int k = 1; k <= power.rows(); ++k) {
        const std::string_view word = next_word(reader.line, pos);
        if (word.empty()) break;  // the remaining powers stay 0
        if (!ValueReader(word).read(power(k, i))) return reader.fail(POWER_MESSAGE);
    }
    return true;
}

}  // namespace

bool SECTION_LOADCASE(InputReader& reader, int /*row*/) {
    const int nLoadCase = reader.nLoadCase;
    if (nLoadCase <= 0) return fail_with(reader, SETTINGS_MESSAGE, " : No load case defined");

    ModelTables& t = reader.tables;
    const int nComponent = row_count(t.LOADCASE_TABLE);
    t.LOADCASE_SPEED.allocate(nLoadCase);
    t.LOADCASE_POWER.allocate(nComponent, nLoadCase);  // all powers 0

    // Lines before the head line that starts with RPM are passed over.
    bool ok = false;
    do {
        ok = reader.next_line();
    } while (ok && first_word_upper(reader.line) != "RPM");
    if (!ok) return fail_with(reader, SETTINGS_MESSAGE, " : no head line starting with RPM");
    const std::string head = reader.line;
    reader.next_line();
    if (!read_columns(reader, head, reader.line)) return false;

    int i = 0;
    ok = reader.next_line();
    while (ok && !is_blank_line(reader.line)) {
        ++i;
        if (i > nLoadCase)
            return fail_with(reader, SETTINGS_MESSAGE,
                             " : more load cases than the " + std::to_string(nLoadCase) + " counted");
        if (!read_load_case(reader, i)) return false;
        ok = reader.next_line();
    }
    if (i < nLoadCase)
        return fail_with(reader, SETTINGS_MESSAGE,
                         " : the table ends after " + std::to_string(i) + " of " + std::to_string(nLoadCase) +
                             " load cases");

    double* p = t.LOADCASE_POWER.data();
    for (std::size_t n = 0; n < t.LOADCASE_POWER.flat_size(); ++n) p[n] *= KW_TO_W;
    return true;
}

void read_genset_file(InputReader& reader, bool& ISSUCCESS) {
    ModelTables& t = reader.tables;
    if (!t.DIESEL_TABLE.allocated() || reader.nLoadCase <= 0 || reader.isGenset != 1) return;

    const int rows = reader.nLoadCase * row_count(t.DIESEL_TABLE);
    t.LOADCASEGENSET_TABLE.allocate(rows);

    const std::string name = reader.ctx.result_path(GENSETFILENAME);
    bool accessible = false;
    ISFILEACCESSABLE(name, accessible);
    if (!accessible) {
        reader.ctx.log_append("error occurs when accessing the getset file" + STRINGOPERATION::trimmed(name));
        ISSUCCESS = false;
        return;
    }

    std::ifstream in;
    open_text_file(in, name);
    std::string line;
    int line_number = 0;
    int row = 0;
    while (read_text_line(in, line)) {
        ++line_number;
        STRINGOPERATION::STRINGDELETETAB(line);
        if (is_blank_line(line)) break;
        if (++row > rows) {
            reader.ctx.log_append(LOG::with_line_number(GENSET_ROWS_MESSAGE, line_number) + " : more lines than the " +
                        std::to_string(rows) + " rows of load cases by diesel engines");
            ISSUCCESS = false;
            return;
        }
        int dieselId = 0;
        double pressureMax = 0.0, pressureComp = 0.0;
        if (!ValueReader(line).read_all(dieselId, pressureMax, pressureComp)) {
            reader.ctx.log_append(LOG::with_line_number(GENSET_VALUES_MESSAGE, line_number));
            ISSUCCESS = false;
            return;
        }
        LoadCaseGensetRecord& r = t.LOADCASEGENSET_TABLE(row);
        r.DIESELID = dieselId;
        r.PRESSUREMAX = pressureMax * BAR_TO_PA;
        r.PRESSURECOMP = pressureComp * BAR_TO_PA;
    }
}

}  // namespace qm::IMPORTINPUTFILE
