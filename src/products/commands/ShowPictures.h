// The pages of the catalog's pictures.
#pragma once

namespace vorlina {

struct GridContext;

// The product that was picked by its picture becomes the current one, and is opened.
void ShowPictures(GridContext& context);

}  // namespace vorlina
