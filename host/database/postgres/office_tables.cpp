#include "database/postgres/office_tables.h"

namespace host {

std::string OfficeTables::Tables() const {
  return "SELECT tablename::text AS name FROM pg_catalog.pg_tables WHERE schemaname=current_schema()";
}

}  // namespace host
