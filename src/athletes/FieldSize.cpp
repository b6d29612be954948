#include "athletes/FieldSize.h"

#include "store/UserTables.h"

namespace kvlr {

int FieldSize(std::string_view table, std::string_view field) {
  const TableDef* t = FindTable(UserTables(), table);
  if (!t) return 0;
  const FieldDef* f = t->Field(field);
  return f && f->type == FieldType::kText ? f->size : 0;
}

}  // namespace kvlr
