#include "system/shell_errors.h"

namespace vorla {

TextView shellErrorText(std::int32_t code) {
    switch (code) {
        case 2: return L"Fichier non trouvé";
        case 3: return L"Chemin non trouvé";
        case 5: return L"Accès refusé";
        case 8: return L"Pas assez de mémoire";
        case 11: return L"Fichier EXE invalide";
        case 26: return L"Une violation de partage est apparue";
        case 27: return L"Association incomplète ou invalide";
        case 28: return L"DDE Délai dépassé";
        case 29: return L"DDE transaction abortée";
        case 30: return L"DDE occupé";
        case 31: return L"Pas d'association enregistrée pour ce type de fichier";
        case 32: return L"DLL non trouvée";
        default: return L"Erreur inconnue";
    }
}

}  // namespace vorla
