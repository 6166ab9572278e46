// The one numbering of COMPONENTTYPE, MASSTYPE and SHAFTTYPE. The component kinds share
// their codes across the three fields; the roles of inertias and shaft elements that
// belong to no kind of their own have codes below 15 (and 29, 31).
#pragma once

namespace qm::CODES {

// COMPONENTTYPE (and MASSTYPE / SHAFTTYPE where a component marks a row with its own code)
constexpr int COMPONENT_UNUSED = 0;              // a load case column not (yet) given a component
constexpr int COMPONENT_NONE_MASS = 1;           // an inertia that belongs to no component
constexpr int COMPONENT_NONE_SHAFT = 9;          // a shaft that belongs to no component
constexpr int COMPONENT_DIESEL = 15;
constexpr int COMPONENT_PROPELLER = 16;
constexpr int COMPONENT_ELECTRICMOTOR = 17;
constexpr int COMPONENT_GENERATOR = 18;
constexpr int COMPONENT_GASTURBINE = 19;
constexpr int COMPONENT_STEAMTURBINE = 20;
constexpr int COMPONENT_VISCOUSDAMPER = 21;
constexpr int COMPONENT_STEELSPRINGDAMPER = 22;
constexpr int COMPONENT_RUBBERDAMPER = 23;
constexpr int COMPONENT_LINEARCOUPLING = 24;
constexpr int COMPONENT_PROGRESSIVECOUPLING = 25;
constexpr int COMPONENT_GEISLINGERCOUPLING = 26;
constexpr int COMPONENT_CENTRIFUGALPUMP = 28;
constexpr int COMPONENT_RECIPROCATINGPUMP = 30;

// MASSTYPE: role of an inertia
constexpr int MASSTYPE_PLAIN = 1;
constexpr int MASSTYPE_DIESELCYLINDER = 2;
constexpr int MASSTYPE_VISCOUSDAMPERRING = 3;
constexpr int MASSTYPE_VISCOUSDAMPERCASING = 4;
constexpr int MASSTYPE_RUBBERDAMPERTURNINGMASS = 5;
constexpr int MASSTYPE_RUBBERDAMPERDRIVEPLATE = 6;
constexpr int MASSTYPE_STEELSPRINGDAMPEROUTER = 7;
constexpr int MASSTYPE_STEELSPRINGDAMPERINNER = 8;
constexpr int MASSTYPE_PROPELLER = 16;
constexpr int MASSTYPE_ELECTRICMOTOR = 17;
constexpr int MASSTYPE_GENERATOR = 18;
constexpr int MASSTYPE_GASTURBINE = 19;
constexpr int MASSTYPE_STEAMTURBINE = 20;
constexpr int MASSTYPE_CENTRIFUGALPUMP = 28;
constexpr int MASSTYPE_PUMPCYLINDER = 29;

// SHAFTTYPE: role of a shaft element
constexpr int SHAFTTYPE_PLAIN = 9;
constexpr int SHAFTTYPE_LINEARCOUPLING = 10;
constexpr int SHAFTTYPE_PROGRESSIVECOUPLING = 11;
constexpr int SHAFTTYPE_VISCOUSDAMPERSPRING = 12;
constexpr int SHAFTTYPE_RUBBERDAMPER = 13;
constexpr int SHAFTTYPE_STEELSPRINGDAMPER = 14;
constexpr int SHAFTTYPE_GEISLINGERCOUPLING = 27;
constexpr int SHAFTTYPE_CRANKTHROW = 31;

// True for the codes of components that can carry a load-case column: the component kinds
// from the diesel engine to the reciprocating pump, without the codes of the Geislinger
// shaft (27) and the pump cylinder (29). A dispatch on the code passes over anything else.
constexpr bool is_loadcase_component(int code) {
    return code >= COMPONENT_DIESEL && code <= COMPONENT_RECIPROCATINGPUMP && code != SHAFTTYPE_GEISLINGERCOUPLING &&
           code != MASSTYPE_PUMPCYLINDER;
}

}  // namespace qm::CODES
