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
    /// `Montant`, typed with any decimal sign, with the system's instead, in the type it came in; see
    /// withSystemSign(). Unchanged when it holds the system's sign already or is blank. A zero amount is
    /// the empty string unless `ZéroSignificatif`. Errors: 13 for what is no amount, 94 for Null.
    Variant NumFrmtSys(VariantView Montant, bool ZéroSignificatif);

    /// `Montant` with a point for the system's decimal separator, as text; unchanged when it holds none.
    /// Errors: 13 for what has no text, 94 for Null.
    Variant NumFrmtEnr(VariantView Montant);

    /// Whether the key goes with the account. True also, after a message, for a bank or branch code that
    /// is no number, and for any key where the account's remainder is 0: old hosts rely on both. Error 6
    /// for a code beyond the 32-bit range. The bank's number is read by the user's settings, of the others
    /// the number they begin with; an account may have any length.
    bool RIBControle(TextView Code_banque, TextView Code_guichet, TextView Compte, TextView Clé_Rib);

    /// The key of the account; 0 after a message for a bank or branch code that is no number, and where
    /// the remainder is 0. Errors as for RIBControle.
    std::int16_t RIBClé(TextView Code_banque, TextView Code_guichet, TextView Compte);
};

}  // namespace vorla
