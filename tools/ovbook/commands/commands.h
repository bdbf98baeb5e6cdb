#pragma once

namespace CLI {
class App;
}

namespace ovbook {

class Session;

/// Each adds its commands to `ovbook`; running one of them writes to the session, which outlives
/// the parser.
void addImportCommand(CLI::App& ovbook, Session& session);
void addExportCommand(CLI::App& ovbook, Session& session);
void addListCommand(CLI::App& ovbook, Session& session);
void addShowCommand(CLI::App& ovbook, Session& session);
void addDumpCommand(CLI::App& ovbook, Session& session);
void addNameOrderCommand(CLI::App& ovbook, Session& session);
/// `countries`, `country`
void addCountryCommands(CLI::App& ovbook, Session& session);
/// `layout`, `format`
void addAddressCommands(CLI::App& ovbook, Session& session);
void addTagCommand(CLI::App& ovbook, Session& session);

}  // namespace ovbook
