// The commands for the publication order of the products, as the grid shows them.
#pragma once

namespace vorlina {

struct GridContext;

// Gives products that have no number one behind the others. Those that cannot be numbered, as in a database
// that is read-only, can be looked at all the same: what fails is told.
void NumberNewProducts(GridContext& context);
// Numbers the rows that are shown as they are shown.
void NumberAsShown(GridContext& context);
// Brings the selected rows to the place of another one, and sorts by the order; nothing is selected then. A
// selection that has holes is given up.
void DropRowsOn(GridContext& context, int row);
// As a drop of the selected rows on the one above or below them; they stay selected, to be moved on.
void MoveRowsUp(GridContext& context);
void MoveRowsDown(GridContext& context);

}  // namespace vorlina
