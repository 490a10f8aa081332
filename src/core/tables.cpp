#include "core/tables.h"

namespace vantor {

Traffic traffic;
Session session;

} // namespace vantor
