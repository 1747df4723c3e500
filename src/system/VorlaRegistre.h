// VorlaRegistre: the registry below one root key.
//
// No member raises an error: what fails gives False or, where a value is read, Empty. Paths, names and texts
// cross to Windows in the ANSI code page, paths and names up to their first NUL. Paths are relative to the
// root; but for RegIsFullAccessRight, one leading backslash does not count. No key stays open between calls.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaRegistre {
public:
    /// Whether the key exists and the caller may do everything with it. The path is used as it is.
    bool RegIsFullAccessRight(TextView Cle);

    /// Makes a key, with those above it that are missing. True also for a key that was there.
    bool RegCreerNouvelleCle(TextView Cle);

    /// Deletes a key and its values. Windows refuses one that has subkeys.
    bool RegSupprimeCle(TextView Cle);

    /// Adds the names of a key's subkeys to the host's collection, as the registry orders them, without the
    /// blanks around them. Ends where the collection refuses one; those before it stay.
    void RegLireCles(TextView Cle, const HostObject& Coll);

    /// The same with the names of a key's values. The unnamed value is not listed.
    void RegLireValeurs(TextView Cle, const HostObject& Coll);

    /// Stores a text, up to its first NUL and without the blanks around it, or a 32-bit number. Any other
    /// type stores nothing and gives True; hosts rely on it. A missing key is made first, if wanted.
    bool RegEcritValeur(TextView Cle, TextView NomValeur, VariantView Valeur, DataType TypeValeur,
                        const bool& CreateKeyIfNotExist);

    /// Whether the key has a value of this name; an empty name is that of the unnamed value.
    bool RegExisteValeur(TextView Cle, TextView NomValeur);

    /// Whether the key can be read, in a variant.
    Variant RegExisteClé(TextView Cle);

    /// Deletes a value; False also when there is none of this name.
    bool RegEffaceValeur(TextView Cle, const Text& NomValeur);

    /// A value's text, its 32-bit number, or its binary data as a text that lacks the last byte. Empty for
    /// any other type, for data of length 0, and for what cannot be read.
    Variant RegLitValeur(TextView Cle, TextView NomValeur);

    /// The root, which any 32-bit number can be: Windows judges it when it is used.
    CleBDR root() const { return root_; }
    void setRoot(CleBDR root) { root_ = root; }

private:
    CleBDR root_{-2147483646};  // HKEY_LOCAL_MACHINE
};

}  // namespace vorla
