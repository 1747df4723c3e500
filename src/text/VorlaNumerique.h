// VorlaNumérique: decimal signs of amounts, and the key of French bank accounts.
//
// Every member is unguarded: failures reach the host as run-time errors. The system's decimal separator is
// looked up at each call, so that a change of the user's settings counts at once.
#pragma once

#include <cstdint>

#include "frame/values/variant.h"

namespace vorla {

class VorlaNumérique {
public:
    /// `Montant`, typed with any decimal sign, rewritten with the system's, in its own type; see
    /// withSystemSign(). Unchanged when it already contains the system's sign or is blank. A zero amount
    /// becomes an empty string unless `ZéroSignificatif`. Errors: 13 for what is not an amount, 94 for Null.
    Variant NumFrmtSys(VariantView Montant, bool ZéroSignificatif);

    /// `Montant` as text, with a point in place of the system's decimal separator; unchanged when it contains
    /// none. Errors: 13 for a value that has no text, 94 for Null.
    Variant NumFrmtEnr(VariantView Montant);

    /// Whether the key fits the account; see bankKeyFits(). Also True, after a message, for a bank or branch
    /// code that is not a number. The bank's number is read by the user's settings; the other codes count as
    /// the number they begin with. Error 6 for a code beyond the 32-bit range.
    bool RIBControle(TextView Code_banque, TextView Code_guichet, TextView Compte, TextView Clé_Rib);

    /// The key of the account. 0 after a message for a bank or branch code that is not a number, and when the
    /// remainder is 0. Errors as for RIBControle.
    std::int16_t RIBClé(TextView Code_banque, TextView Code_guichet, TextView Compte);
};

}  // namespace vorla
