#include "frame/specimen.h"

#include <new>
#include <stdexcept>
#include <utility>

#include "frame/com/publish.h"
#include "frame/values/conversions.h"
#include "frame/values/runtime_error.h"
#include "typelib/type_library_writer.h"

namespace vorla::test {

void Specimen::VariableRef(Variant& Valeur) { Valeur = Variant(TextView(L"changée")); }

Text Specimen::Deux(Text& Un, Text& Autre) {
    Un += L"1";
    Autre += L"2";
    return Un + Autre;
}

Text Specimen::SansDéfaut(std::int16_t Nombre, Text Chaîne, bool Vrai, double Réel, VariantView Quoi,
                          HostObject Qui, Text& Ref) {
    return std::to_wstring(Nombre) + L"|" + Chaîne + L"|" + (Vrai ? L"T" : L"F") + L"|" +
           (Réel != 0 ? L"R" : L"0") + L"|" + (Quoi.isMissing() ? L"missing" : L"given") + L"|" +
           (Qui ? L"object" : L"nothing") + L"|" + Ref;
}

Text Specimen::AvecDéfaut(std::int16_t Nombre, Text Chaîne, bool Vrai, bool Faux, std::uint8_t Octet,
                          float Réel, eFileN Morceau, bool& Ref) {
    return std::to_wstring(Nombre) + L"|" + Chaîne + L"|" + (Vrai ? L"T" : L"F") + L"|" +
           (Faux ? L"T" : L"F") + L"|" + std::to_wstring(Octet) + L"|" +
           std::to_wstring(static_cast<int>(Réel)) + L"|" + std::to_wstring(static_cast<int>(Morceau)) +
           L"|" + (Ref ? L"T" : L"F");
}

std::int32_t Specimen::readElement(std::int16_t index) const {
    if (index < 0 || index > 2) throw RuntimeError(std::uint16_t{9});
    return elements_[index];
}

void Specimen::writeElement(std::int16_t index, std::int32_t value) {
    if (index < 0 || index > 2) throw RuntimeError(std::uint16_t{9});
    elements_[index] = value;
}

void Specimen::Échoue(std::int32_t Numéro) {
    if (Numéro != 0) throw RuntimeError(static_cast<std::uint16_t>(Numéro));
}

void Specimen::Explose(std::int16_t Comment) {
    if (Comment == 1) throw 42;
    if (Comment == 2) throw std::bad_alloc();
    if (Comment == 3) throw std::runtime_error("unforeseen");
}

Text Specimen::ChangeEtÉchoue(Text& Valeur) {
    Valeur = L"changed";
    throw RuntimeError(ErrorNumber::overflow);
}

namespace {

std::function<void()> waitingHostCode;

void runHostCode() {
    if (const auto code = std::exchange(waitingHostCode, nullptr)) code();
}

}  // namespace

void duringNextCall(std::function<void()> hostCode) { waitingHostCode = std::move(hostCode); }

std::int32_t Specimen::NombreTenu(const std::int32_t& Valeur) {
    runHostCode();
    return Valeur;
}

Text Specimen::TexteTenu(TextView Valeur) {
    runHostCode();
    return Text(Valeur);
}

Text Specimen::TexteRefTenu(const Text& Valeur) {
    runHostCode();
    return Valeur;
}

Variant Specimen::VariableTenue(VariantView Valeur) {
    runHostCode();
    return Variant(Valeur);
}

Variant Specimen::VariableRefTenue(const Variant& Valeur) {
    runHostCode();
    return Variant(Valeur.view());
}

HostObject Specimen::ObjetTenu(HostObject Valeur) {
    runHostCode();
    return Valeur;
}

HostObject Specimen::ObjetRefTenu(const HostObject& Valeur) {
    runHostCode();
    return Valeur;
}

void Specimen::Laisse(std::int32_t&, Text&, bool&, Variant&, HostObject&) { runHostCode(); }

void Specimen::LaisseCadre(records::Rect&) { runHostCode(); }

std::int32_t Specimen::ChangeNombre(std::int32_t& Valeur) {
    runHostCode();
    return std::exchange(Valeur, -1);
}

Text Specimen::ChangeTexte(Text& Valeur) {
    runHostCode();
    return std::exchange(Valeur, L"changée");
}

Variant Specimen::ChangeVariable(Variant& Valeur) {
    runHostCode();
    return std::exchange(Valeur, Variant(TextView(L"changée")));
}

records::Rect Specimen::ChangeCadre(records::Rect& Valeur) {
    runHostCode();
    return std::exchange(Valeur, records::Rect{-1, -2, -3, -4});
}

Text Specimen::TexteEtNombre(TextView Texte, std::int32_t Nombre) {
    return Text(Texte) + std::to_wstring(Nombre);
}

Text Specimen::TexteRefEtNombre(const Text& Texte, std::int32_t Nombre) {
    return TexteEtNombre(Texte, Nombre);
}

Text Specimen::VariableEtNombre(VariantView Texte, std::int32_t Nombre) {
    return TexteEtNombre(ValueText(Texte).view(), Nombre);
}

Variant Specimen::VariableOuErreur(std::int32_t& Numéro) {
    Échoue(Numéro);
    return Numéro;
}

records::Rect Specimen::CadreOuErreur(std::int32_t Numéro) {
    Échoue(Numéro);
    return {};
}

namespace {

HRESULT loadSpecimen(ITypeLib** library) { return LoadTypeLibEx(specimenFile(), REGKIND_NONE, library); }

}  // namespace

const Library specimenLibrary{L"SpecimenLib",
                              {0x0D1C54F2, 0x8C0A, 0x4E5B, {0x93, 0x5D, 0x61, 0x0B, 0x2F, 0x90, 0x7E, 0x4A}},
                              1,
                              0,
                              &loadSpecimen};

// clang-format off
PUBLISH(Specimen,
        DATA_MEMBER(0, Teinte),
        DATA_MEMBER(2, Actif),
        METHOD(4, Court, L"Valeur"),
        METHOD(5, Long, L"Valeur"),
        METHOD(6, Octet, L"Valeur"),
        RESERVED_SLOT(7),
        METHOD(8, Simple, L"Valeur"),
        METHOD(9, Double, L"Valeur"),
        METHOD(10, Booléen, L"Valeur"),
        METHOD(11, Montant, L"Valeur"),
        METHOD(12, Jour, L"Valeur"),
        METHOD(13, Chaîne, L"Valeur"),
        METHOD(14, Vue, L"Valeur"),
        METHOD(15, Variable, L"Valeur"),
        METHOD(16, Morceau, L"Valeur"),
        METHOD(17, Objet, L"Valeur"),
        METHOD(18, Image, L"Valeur"),
        METHOD(19, Police, L"Valeur"),
        METHOD(20, Cadre, L"Coin"),
        PROPERTY_GET(21, Titre, readTitle),
        PROPERTY_LET(22, Titre, writeTitle),
        PROPERTY_GET(23, Élément, readElement, L"Index"),
        PROPERTY_LET(24, Élément, writeElement, L"Index"),
        PROPERTY_GET(25, Cible, readTarget),
        PROPERTY_SET(26, Cible, writeTarget),
        METHOD(27, CourtRef, L"Valeur"),
        METHOD(28, LongRef, L"Valeur"),
        METHOD(29, OctetRef, L"Valeur"),
        METHOD(30, SimpleRef, L"Valeur"),
        METHOD(31, DoubleRef, L"Valeur"),
        METHOD(32, BooléenRef, L"Valeur"),
        METHOD(33, MontantRef, L"Valeur"),
        METHOD(34, JourRef, L"Valeur"),
        METHOD(35, ChaîneRef, L"Valeur"),
        METHOD(36, VariableRef, L"Valeur"),
        METHOD(37, MorceauRef, L"Valeur"),
        METHOD(38, ObjetRef, L"Valeur"),
        METHOD(39, CadreRef, L"Valeur"),
        METHOD(40, Lue, L"Valeur"),
        METHOD(41, Deux, L"Un", L"Autre"),
        METHOD(42, SansDéfaut, optional(L"Nombre"), optional(L"Chaîne"), optional(L"Vrai"),
               optional(L"Réel"), optional(L"Quoi"), optional(L"Qui"), optional(L"Ref")),
        METHOD(43, AvecDéfaut, optional(L"Nombre", 5), optional(L"Chaîne", L"\t"), optional(L"Vrai", true),
               optional(L"Faux", false), optional(L"Octet", 100), optional(L"Réel", 12),
               optional(L"Morceau", eFileN::efDisque), optional(L"Ref", true)),
        METHOD_AS(44, spaced, L"Avec\u00A0blanc"),
        RESERVED_SLOT(45),
        METHOD(46, Échoue, L"Numéro"),
        METHOD(47, Explose, L"Comment"),
        METHOD(48, ChangeEtÉchoue, L"Valeur"),
        METHOD(49, NombreTenu, L"Valeur"),
        METHOD(50, TexteTenu, L"Valeur"),
        METHOD(51, TexteRefTenu, L"Valeur"),
        METHOD(52, VariableTenue, L"Valeur"),
        METHOD(53, VariableRefTenue, L"Valeur"),
        METHOD(54, ObjetTenu, L"Valeur"),
        METHOD(55, ObjetRefTenu, L"Valeur"),
        METHOD(56, Laisse, L"Nombre", L"Chaîne", L"Vrai", L"Quoi", L"Qui"),
        METHOD(57, LaisseCadre, L"Valeur"),
        METHOD(58, ChangeNombre, L"Valeur"),
        METHOD(59, ChangeTexte, L"Valeur"),
        METHOD(60, ChangeVariable, L"Valeur"),
        METHOD(61, ChangeCadre, L"Valeur"),
        VIEWING_METHOD(62, TexteEtNombre, L"Texte", L"Nombre"),
        VIEWING_METHOD(63, TexteRefEtNombre, L"Texte", L"Nombre"),
        VIEWING_METHOD(64, VariableEtNombre, L"Texte", L"Nombre"),
        METHOD(65, VariableOuErreur, L"Numéro"),
        METHOD(66, CadreOuErreur, L"Numéro"))
// clang-format on

const wchar_t* specimenFile() {
    static const std::wstring file = [] {
        wchar_t folder[MAX_PATH], name[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"vor", 0, name);
        const Publication* const classes[] = {&publicationOf(Of<Specimen>())};
        typelib::write(specimenLibrary, classes, name);
        return std::wstring(name);
    }();
    return file.c_str();
}

}  // namespace vorla::test
