#include "system/VorlaRegistre.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaRegistre, METHOD(RegIsFullAccessRight, L"Cle"), METHOD(RegCreerNouvelleCle, L"Cle"),
        METHOD(RegSupprimeCle, L"Cle"), METHOD(RegLireCles, L"Cle", L"Coll"),
        METHOD(RegLireValeurs, L"Cle", L"Coll"),
        METHOD(RegEcritValeur, L"Cle", L"NomValeur", L"Valeur", L"TypeValeur",
               optional(L"CreateKeyIfNotExist", true)),
        METHOD(RegExisteValeur, L"Cle", L"NomValeur"), METHOD(RegExisteClé, L"Cle"),
        METHOD(RegEffaceValeur, L"Cle", L"NomValeur"), METHOD(RegLitValeur, L"Cle", L"NomValeur"),
        PROPERTY_GET(RegClePrimaire, root), PROPERTY_LET(RegClePrimaire, setRoot))

}  // namespace vorla
