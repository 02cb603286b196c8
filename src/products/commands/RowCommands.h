// The commands for the rows that are selected, and for the grid as a whole.
#pragma once

namespace vorlina {

struct GridContext;

// Puts the selected rows on the clipboard, without a row of captions and without quotes: a ";" in a cell is
// not marked.
void CopyRows(GridContext& context);
// Deletes the selected rows, as the Delete key does.
void DeleteRows(GridContext& context);
// Reads the rows anew.
void RefreshRows(GridContext& context);
void RestoreColumnWidths(GridContext& context);

}  // namespace vorlina
