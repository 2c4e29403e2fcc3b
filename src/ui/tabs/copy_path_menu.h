#pragma once

namespace kestor {

class RowListView;
class RowModel;

/// Gives the rows of `list`, which shows `rows`, a menu that copies the path of a row.
void addCopyPathMenu(RowListView &list, const RowModel &rows);

} // namespace kestor
