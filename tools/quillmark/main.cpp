// quillmark: the command-line tool of the torsional vibration library.
#include <CLI/CLI.hpp>

#include "ExportCommand.h"
#include "PressureCommand.h"
#include "RunCommand.h"

int main(int argc, char** argv) {
    CLI::App app{"Quillmark: torsional vibration of marine propulsion and auxiliary shaft lines"};
    app.require_subcommand(1);
    int exit_code = 0;
    qm::cli::add_run_command(app, exit_code);
    qm::cli::add_check_command(app, exit_code);
    qm::cli::add_pressure_command(app);
    qm::cli::add_export_command(app, exit_code);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        const int status = app.exit(e);
        return status == 0 ? 0 : 2;  // --help is no error; a usage error is status 2
    }
    return exit_code;
}
