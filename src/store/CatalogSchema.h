// What a catalog database consists of, compared with the schema that the program was built with.
#pragma once

namespace vorlina {

class Connection;

// Throws Error for a database with a trigger, a view or a virtual table: the program makes none, and what is
// written would set them off.
void RequireTablesAlone(Connection& connection);

// Throws Error for a database whose tables of the program's names are built otherwise, whether they were made
// so or brought up to date, and for one with further indexes on them, which might refuse rows. Tables of
// other names are a plug-in's own.
void RequireOwnSchema(Connection& connection);

}  // namespace vorlina
