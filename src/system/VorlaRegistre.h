// VorlaRegistre: the registry below one root key.
//
// No member raises an error: a failure gives False, or Empty where a value is read. Paths, names and texts
// reach Windows in the ANSI code page, paths and names up to their first NUL. Paths are relative to the root.
// One leading backslash is ignored, except by RegIsFullAccessRight. No key stays open between calls.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaRegistre {
public:
    /// Whether the key exists and the caller has full access to it. The path is used as it is.
    bool RegIsFullAccessRight(TextView Cle);

    /// Makes a key and the missing keys above it. True also when the key exists already.
    bool RegCreerNouvelleCle(TextView Cle);

    /// Deletes a key and its values. Windows refuses a key that has subkeys.
    bool RegSupprimeCle(TextView Cle);

    /// Adds the names of a key's subkeys to the host's collection, in the registry's order, without blanks
    /// around them. Ends at the first name that the collection refuses; the names before it stay.
    void RegLireCles(TextView Cle, const HostObject& Coll);

    /// The same with the names of a key's values. The unnamed value is not listed.
    void RegLireValeurs(TextView Cle, const HostObject& Coll);

    /// Stores a text, up to its first NUL and without blanks around it, or a 32-bit number. Any other type
    /// stores nothing and gives True. A missing key is made first if `CreateKeyIfNotExist`.
    bool RegEcritValeur(TextView Cle, TextView NomValeur, VariantView Valeur, DataType TypeValeur,
                        const bool& CreateKeyIfNotExist);

    /// Whether the key has a value of this name. An empty name means the unnamed value.
    bool RegExisteValeur(TextView Cle, TextView NomValeur);

    /// Whether the key can be read, in a variant.
    Variant RegExisteClé(TextView Cle);

    /// Deletes a value. False also when it does not exist.
    bool RegEffaceValeur(TextView Cle, const Text& NomValeur);

    /// A value's text, its 32-bit number, or its binary data as a text without the last byte. Empty for any
    /// other type, for data of length 0, and for a value that cannot be read.
    Variant RegLitValeur(TextView Cle, TextView NomValeur);

    /// The root. Any 32-bit number is accepted; Windows checks it when it is used.
    CleBDR root() const { return root_; }
    void setRoot(CleBDR root) { root_ = root; }

private:
    CleBDR root_{-2147483646};  // HKEY_LOCAL_MACHINE
};

}  // namespace vorla
