// VorlaNumérique: decimal signs of amounts and the bank account key.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaNumérique {};

}  // namespace vorla
