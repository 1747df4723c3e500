#include "frame/specimen.h"

#include <new>
#include <stdexcept>

#include "frame/com/publish.h"
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

HRESULT loadSpecimen(ITypeLib** library) { return LoadTypeLibEx(specimenFile(), REGKIND_NONE, library); }

}  // namespace

const Library specimenLibrary{L"SpecimenLib",
                              {0x0D1C54F2, 0x8C0A, 0x4E5B, {0x93, 0x5D, 0x61, 0x0B, 0x2F, 0x90, 0x7E, 0x4A}},
                              1,
                              0,
                              &loadSpecimen};

PUBLISH(Specimen, DATA_MEMBER(Teinte), DATA_MEMBER(Actif), METHOD(Court, L"Valeur"), METHOD(Long, L"Valeur"),
        METHOD(Octet, L"Valeur"), RESERVED_SLOT, METHOD(Simple, L"Valeur"), METHOD(Double, L"Valeur"),
        METHOD(Booléen, L"Valeur"), METHOD(Montant, L"Valeur"), METHOD(Jour, L"Valeur"),
        METHOD(Chaîne, L"Valeur"), METHOD(Vue, L"Valeur"), METHOD(Variable, L"Valeur"),
        METHOD(Morceau, L"Valeur"), METHOD(Objet, L"Valeur"), METHOD(Image, L"Valeur"),
        METHOD(Police, L"Valeur"), METHOD(Cadre, L"Coin"), PROPERTY_GET(Titre, readTitle),
        PROPERTY_LET(Titre, writeTitle), PROPERTY_GET(Élément, readElement, L"Index"),
        PROPERTY_LET(Élément, writeElement, L"Index"), PROPERTY_GET(Cible, readTarget),
        PROPERTY_SET(Cible, writeTarget), METHOD(CourtRef, L"Valeur"), METHOD(LongRef, L"Valeur"),
        METHOD(OctetRef, L"Valeur"), METHOD(SimpleRef, L"Valeur"), METHOD(DoubleRef, L"Valeur"),
        METHOD(BooléenRef, L"Valeur"), METHOD(MontantRef, L"Valeur"), METHOD(JourRef, L"Valeur"),
        METHOD(ChaîneRef, L"Valeur"), METHOD(VariableRef, L"Valeur"), METHOD(MorceauRef, L"Valeur"),
        METHOD(ObjetRef, L"Valeur"), METHOD(CadreRef, L"Valeur"), METHOD(Lue, L"Valeur"),
        METHOD(Deux, L"Un", L"Autre"),
        METHOD(SansDéfaut, optional(L"Nombre"), optional(L"Chaîne"), optional(L"Vrai"), optional(L"Réel"),
               optional(L"Quoi"), optional(L"Qui"), optional(L"Ref")),
        METHOD(AvecDéfaut, optional(L"Nombre", 5), optional(L"Chaîne", L"\t"), optional(L"Vrai", true),
               optional(L"Faux", false), optional(L"Octet", 100), optional(L"Réel", 12),
               optional(L"Morceau", eFileN::efDisque), optional(L"Ref", true)),
        METHOD_AS(spaced, L"Avec\u00A0blanc"), RESERVED_SLOT, METHOD(Échoue, L"Numéro"),
        METHOD(Explose, L"Comment"), METHOD(ChangeEtÉchoue, L"Valeur"))

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
