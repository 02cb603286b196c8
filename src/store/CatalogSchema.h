// What a catalog database consists of, compared with the schema that the program was built with.
#pragma once

namespace vorlina {

class Connection;

// Throws Error for a database with a trigger, a view or a virtual table: the program makes none, and what is
// written would set them off.
void RequireTablesAlone(Connection& connection);

// Throws Error for a database whose tables, columns, keys and indexes are not those of the program, whether
// it was made so or brought up to date.
void RequireOwnSchema(Connection& connection);

}  // namespace vorlina
