#include "input/SystemInfo.h"

#include <array>
#include <fstream>

#include "components/GlobalCentrifugalPump.h"
#include "components/GlobalDiesel.h"
#include "components/GlobalElectricMotor.h"
#include "components/GlobalGeislingerCoupling.h"
#include "components/GlobalGenerator.h"
#include "components/GlobalLinearCoupling.h"
#include "components/GlobalMass.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/GlobalPropeller.h"
#include "components/GlobalReciprocatingPump.h"
#include "components/GlobalRubberDamper.h"
#include "components/GlobalShaft.h"
#include "components/GlobalTurbine.h"
#include "components/GlobalSteelSpringDamper.h"
#include "components/GlobalViscousDamper.h"
#include "base/BinFile.h"
#include "base/Format.h"

namespace qm::IMPORTINPUTFILE {

void OUTPUTSYSTEMINFO(RunContext& ctx, const ModelTables& t) {
    const std::array<double, 18> records = {
        static_cast<double>(GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE)),
        static_cast<double>(GLOBAL_SHAFT::GET_SHAFT_NUMBER(t.SHAFT_TABLE)),
        static_cast<double>(GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_NUMBER(t.VISCOUSDAMPER_TABLE)),
        static_cast<double>(GLOBAL_RUBBERDAMPER::GET_RUBBERDAMPER_NUMBER(t.RUBBERDAMPER_TABLE)),
        static_cast<double>(GLOBAL_STEELSPRINGDAMPER::GET_STEELSPRINGDAMPER_NUMBER(t.STEELSPRINGDAMPER_TABLE)),
        static_cast<double>(GLOBAL_LINEARCOUPLING::GET_LINEARCOUPLING_NUMBER(t.LINEARCOUPLING_TABLE)),
        static_cast<double>(GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_NUMBER(t.PROGRESSIVECOUPLING_TABLE)),
        static_cast<double>(GLOBAL_DIESEL::GET_DIESEL_NUMBER(t.DIESEL_TABLE)),
        static_cast<double>(GLOBAL_ELECTRICMOTOR::GET_ELECTRICMOTOR_NUMBER(t.ELECTRICMOTOR_TABLE)),
        static_cast<double>(GLOBAL_GASTURBINE::GET_GASTURBINE_NUMBER(t.GASTURBINE_TABLE)),
        static_cast<double>(GLOBAL_STEAMTURBINE::GET_STEAMTURBINE_NUMBER(t.STEAMTURBINE_TABLE)),
        static_cast<double>(GLOBAL_PROPELLER::GET_PROPELLER_NUMBER(t.PROPELLER_TABLE)),
        static_cast<double>(GLOBAL_GENERATOR::GET_GENERATOR_NUMBER(t.GENERATOR_TABLE)),
        static_cast<double>(t.LOADCASE_SPEED.allocated() ? t.LOADCASE_SPEED.size() : 0),
        static_cast<double>(GLOBAL_DIESEL::GET_DIESEL_NCYLFOURIERCOEFFICIENTS(t.DIESEL_TABLE)),
        static_cast<double>(GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_NUMBER(t.GEISLINGERCOUPLING_TABLE)),
        static_cast<double>(GLOBAL_CENTRIFUGALPUMP::GET_CENTRIFUGALPUMP_NUMBER(t.CENTRIFUGALPUMP_TABLE)),
        static_cast<double>(GLOBAL_RECIPROCATINGPUMP::GET_RECIPROCATINGPUMP_NUMBER(t.RECIPROCATINGPUMP_TABLE)),
    };
    write_bin_file(ctx.result_path(SYSTEMINFOFILE), records.data(), records.size());
}

namespace {
const char* status_text(int status) {
    switch (status) {
        case 1: return "      Normal firing";
        case 2: return "      Only compression";
        case 3: return "      Exhaust valve open";
        case 4: return "      Piston removed";
        case 5: return "      Partial firing";
        default: return nullptr;
    }
}

// "(A, I6, A, A)": the engine's 20-character name, the cylinder's inertia, the bank, the status.
void status_line(std::ofstream& out, const DieselRecord& engine, int j, const char* bank, int status) {
    const char* text = status_text(status);
    if (text == nullptr) return;
    std::string name = engine.NAME.substr(0, 20);
    name.resize(20, ' ');
    out << name << fmt::I(engine.CYLINDERS[static_cast<std::size_t>(j)], 6) << bank << text << "\n";
}
}  // namespace

void OUTPUTDIESELFIRINGSTATUS(RunContext& ctx, const ModelTables& tables) {
    const DieselTable& DIESEL_TABLE = tables.DIESEL_TABLE;
    if (!DIESEL_TABLE.allocated()) return;
    std::ofstream out(ctx.result_path(OVERVIEWFILE), std::ios::binary | std::ios::trunc);
    out << "Engine                  Cyl       Bank       Firing Status\n";
    out << "----------------------------------------------------------\n";
    for (int e = 1; e <= DIESEL_TABLE.size(); ++e) {
        const DieselRecord& engine = DIESEL_TABLE(e);
        const int ncyl = engine.NCYLINDER > 20 ? 20 : engine.NCYLINDER;
        for (int j = 0; j < ncyl; ++j) {
            status_line(out, engine, j, "          A ", engine.FIRINGSTATUSA[static_cast<std::size_t>(j)]);
            if (engine.ISVENGINE)
                status_line(out, engine, j, "          B ", engine.FIRINGSTATUSB[static_cast<std::size_t>(j)]);
        }
    }
}

}  // namespace qm::IMPORTINPUTFILE
