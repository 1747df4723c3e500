#include "frame/com/error_texts.h"

#include "frame/values/winapi.h"

namespace vorla {
namespace {

struct ErrorText {
    ErrorNumber number;
    const wchar_t* english;
    const wchar_t* french;
};

constexpr ErrorText texts[] = {
    {ErrorNumber::invalidProcedureCall, L"Invalid procedure call or argument",
     L"Appel de procédure ou argument incorrect"},
    {ErrorNumber::overflow, L"Overflow", L"Dépassement de capacité"},
    {ErrorNumber::outOfMemory, L"Out of memory", L"Mémoire insuffisante"},
    {ErrorNumber::divisionByZero, L"Division by zero", L"Division par zéro"},
    {ErrorNumber::typeMismatch, L"Type mismatch", L"Type incompatible"},
    {ErrorNumber::fileNotFound, L"File not found", L"Fichier introuvable"},
    {ErrorNumber::pathNotFound, L"Path not found", L"Chemin introuvable"},
    {ErrorNumber::objectNotSet, L"Object variable not set", L"Variable objet non définie"},
    {ErrorNumber::invalidUseOfNull, L"Invalid use of Null", L"Utilisation incorrecte de Null"},
    {ErrorNumber::objectRequired, L"Object required", L"Objet requis"},
    {ErrorNumber::propertyOrMethodNotSupported, L"Object doesn't support this property or method",
     L"Propriété ou méthode non gérée par cet objet"},
    {ErrorNumber::automationError, L"Automation error", L"Erreur Automation"},
    {ErrorNumber::invalidPicture, L"Invalid picture", L"Image incorrecte"},
};

}  // namespace

const wchar_t* errorText(ErrorNumber number) noexcept {
    const bool french = PRIMARYLANGID(LANGIDFROMLCID(GetUserDefaultLCID())) == LANG_FRENCH;
    for (const ErrorText& text : texts)
        if (text.number == number) return french ? text.french : text.english;
    return french ? L"Erreur définie par l'application ou par l'objet"
                  : L"Application-defined or object-defined error";
}

}  // namespace vorla
