#include "input/InputSections.h"

#include "input/ComponentSpeedRatios.h"
#include "input/LoadCaseInput.h"
#include "input/SectionsDampersCouplings.h"
#include "input/SectionsMachines.h"
#include "base/ComponentCodes.h"
#include "base/ValueReader.h"

namespace qm::IMPORTINPUTFILE {

bool SECTION_INERTIA(InputReader& reader, int row) {
    int id = 0;
    double rpmratio = 0, inertia = 0, absdamping = 0, dynmagnifier = 0;
    ValueReader values(reader.values);
    if (!values.read_all(id, rpmratio, inertia, absdamping, dynmagnifier))
        return reader.fail(
            "Error occurs when reading \"Id, RpmRatio, Inertia, AbsDamping, DynMagnifier\" in input file line ");
    MassRecord& m = reader.tables.MASS_TABLE(row);
    m.MASSTYPE = CODES::MASSTYPE_PLAIN;
    m.COMPONENTTYPE = CODES::COMPONENT_NONE_MASS;
    m.COMPONENTID = id;
    m.ID = id;
    m.RPMRATIO = rpmratio;
    m.INERTIA = inertia;
    m.ABSDAMPING = absdamping;
    m.DYNMAGNIFIER = dynmagnifier;
    return true;
}

bool SECTION_SHAFT(InputReader& reader, int row) {
    int id = 0, orgnode = 0, desnode = 0, shafttypeflag = 0, componentidflag = 0;
    double rpmratio = 0, stiffness = 0, absdamping = 0, dynmagnifier = 0, outerdi = 0, innerdi = 0;
    ValueReader values(reader.values);
    if (!values.read_all(id, orgnode, desnode, rpmratio, stiffness, absdamping, dynmagnifier, outerdi,
                         innerdi, shafttypeflag, componentidflag))
        return reader.fail(
            "Error occurs when reading \"Id, OrgNode, DesNode, RpmRatio, Stiffness, AbsDamping, "
            "DynMagnifier, OuterDi, InnerDi, ShaftTypeFlag, ComponentIdFlag\" in input file line ");
    ShaftRecord& s = reader.tables.SHAFT_TABLE(row);
    s.ID = id;
    s.ORGNODE = orgnode;
    s.DESNODE = desnode;
    s.RPMRATIO = rpmratio;
    s.STIFFNESS = stiffness;
    s.ABSDAMPING = absdamping;
    s.DYNMAGNIFIER = dynmagnifier;
    s.OUTERDI = outerdi / 1000.0;  // mm to m
    s.INNERDI = innerdi / 1000.0;
    if (shafttypeflag == 1 && componentidflag > 0) {
        // A crank throw of the diesel engine with that ID.
        s.SHAFTTYPE = CODES::SHAFTTYPE_CRANKTHROW;
        s.COMPONENTTYPE = CODES::COMPONENT_DIESEL;
        s.COMPONENTID = componentidflag;
    } else {
        s.SHAFTTYPE = CODES::SHAFTTYPE_PLAIN;
        s.COMPONENTTYPE = CODES::COMPONENT_NONE_SHAFT;
        s.COMPONENTID = id;
    }
    return true;
}

std::array<SectionReader, NKINDS> section_readers() {
    std::array<SectionReader, NKINDS> readers{};
    readers[INERTIA] = SECTION_INERTIA;
    readers[SHAFT] = SECTION_SHAFT;
    readers[VISCOUSDAMPER] = SECTION_VISCOUSDAMPER;
    readers[RUBBERDAMPER] = SECTION_RUBBERDAMPER;
    readers[STEELSPRINGDAMPER] = SECTION_STEELSPRINGDAMPER;
    readers[LINEARCOUPLING] = SECTION_LINEARCOUPLING;
    readers[PROGRESSIVECOUPLING] = SECTION_PROGRESSIVECOUPLING;
    readers[GEISLINGERCOUPLING] = SECTION_GEISLINGERCOUPLING;
    readers[ELECTRICMOTOR] = SECTION_ELECTRICMOTOR;
    readers[GENERATOR] = SECTION_GENERATOR;
    readers[CENTRIFUGALPUMP] = SECTION_CENTRIFUGALPUMP;
    readers[GASTURBINE] = SECTION_GASTURBINE;
    readers[STEAMTURBINE] = SECTION_STEAMTURBINE;
    readers[DIESEL] = SECTION_DIESEL;
    readers[RECIPROCATINGPUMP] = SECTION_RECIPROCATINGPUMP;
    readers[PROPELLER] = SECTION_PROPELLER;
    return readers;
}

SectionReader propeller_ice_reader() { return SECTION_PROPELLERICE; }

SectionReader load_case_reader() { return SECTION_LOADCASE; }

void complete_after_reading(InputReader& reader, bool& ISSUCCESS) {
    set_component_speed_ratios(reader.tables);
    read_genset_file(reader, ISSUCCESS);
}

}  // namespace qm::IMPORTINPUTFILE
