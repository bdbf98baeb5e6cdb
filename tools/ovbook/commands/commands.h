#pragma once

namespace ovbook {

class Command;
class Session;

/// Each adds its commands to `ovbook`; running one of them writes to the session, which outlives
/// the parser.
void addImportCommand(const Command& ovbook, Session& session);
void addExportCommand(const Command& ovbook, Session& session);
void addBooksCommand(const Command& ovbook, Session& session);
void addListCommand(const Command& ovbook, Session& session);
void addShowCommand(const Command& ovbook, Session& session);
void addDumpCommand(const Command& ovbook, Session& session);
void addNameOrderCommand(const Command& ovbook, Session& session);
/// `countries`, `country`
void addCountryCommands(const Command& ovbook, Session& session);
/// `layout`, `format`
void addAddressCommands(const Command& ovbook, Session& session);
void addTagCommand(const Command& ovbook, Session& session);

}  // namespace ovbook
