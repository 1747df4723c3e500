#include "misc/range_criteria.h"

namespace vorla {

Criteria criteriaOf(TextView first, TextView second, bool areRequired) {
    if (first.empty() || second.empty()) return areRequired ? Criteria::missing : Criteria::accepted;
    return first > second ? Criteria::descending : Criteria::accepted;
}

}  // namespace vorla
