#include "system/VorlaRegistre.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaRegistre,
        METHOD(0, RegIsFullAccessRight, L"Cle"),
        METHOD(1, RegCreerNouvelleCle, L"Cle"),
        METHOD(2, RegSupprimeCle, L"Cle"),
        METHOD(3, RegLireCles, L"Cle", L"Coll"),
        METHOD(4, RegLireValeurs, L"Cle", L"Coll"),
        METHOD(5, RegEcritValeur, L"Cle", L"NomValeur", L"Valeur", L"TypeValeur",
               optional(L"CreateKeyIfNotExist", true)),
        METHOD(6, RegExisteValeur, L"Cle", L"NomValeur"),
        METHOD(7, RegExisteClé, L"Cle"),
        METHOD(8, RegEffaceValeur, L"Cle", L"NomValeur"),
        METHOD(9, RegLitValeur, L"Cle", L"NomValeur"),
        PROPERTY_GET(10, RegClePrimaire, root),
        PROPERTY_LET(11, RegClePrimaire, setRoot))
// clang-format on

}  // namespace vorla
