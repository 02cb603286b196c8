// Paths in rows of an application folder that was copied, moved or carried: made to lead to the pictures that
// came along.
#pragma once

namespace vorlina {

class Connection;

// Points the rows that name a file elsewhere to the file of the same name in "Images", where there is one:
// products, additional pictures and logos, in one transaction. It does not matter whether the other file
// still exists, as it does where the folder was copied. A file outside of any folder "Images" is the user's
// own; its row is pointed to a file of that name only where no other row names that one. Paths as they were
// delivered are rebased in any case. Nothing is done where the database cannot be written, and hardly
// anything where all rows are the folder's own. Before that a picture of which the row was stored, but not
// yet the file, takes its place. Gives how many rows were changed. Throws Error, with the rows as they were.
int FitPicturePaths(Connection& connection);

}  // namespace vorlina
