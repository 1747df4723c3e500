// A class that is published for the tests only, with a member for everything that a publication can express.
// The component's type-library writer writes its library too.
#pragma once

#include <functional>

#include "frame/com/publication.h"
#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/host_reference.h"
#include "frame/values/joined.h"
#include "frame/values/scalars.h"
#include "frame/values/variant.h"

namespace vorla::test {

class Specimen {
public:
    std::int32_t Teinte = 0;
    bool Actif = false;

    // By value, and back as the result.
    std::int16_t Court(std::int16_t Valeur) { return Valeur; }
    std::int32_t Long(std::int32_t Valeur) const { return Valeur; }
    std::uint8_t Octet(std::uint8_t Valeur) { return Valeur; }
    float Simple(float Valeur) { return Valeur; }
    double Double(double Valeur) { return Valeur; }
    bool Booléen(bool Valeur) { return Valeur; }
    Currency Montant(Currency Valeur) { return Valeur; }
    Date Jour(Date Valeur) { return Valeur; }
    Text Chaîne(Text Valeur) { return Valeur; }
    TextView Vue(TextView Valeur) { return Valeur; }
    Variant Variable(VariantView Valeur) { return Variant(Valeur); }
    eFileN Morceau(eFileN Valeur) { return Valeur; }
    HostObject Objet(HostObject Valeur) { return Valeur; }
    HostPicture Image(HostPicture Valeur) { return Valeur; }
    HostFont Police(HostFont Valeur) { return Valeur; }
    records::Rect Cadre(std::int32_t Coin) { return {Coin, Coin + 1, Coin + 2, Coin + 3}; }

    // By reference: each changes what it is given.
    void CourtRef(std::int16_t& Valeur) { ++Valeur; }
    void LongRef(std::int32_t& Valeur) { ++Valeur; }
    void OctetRef(std::uint8_t& Valeur) { ++Valeur; }
    void SimpleRef(float& Valeur) { Valeur += 0.5f; }
    void DoubleRef(double& Valeur) { Valeur += 0.5; }
    void BooléenRef(bool& Valeur) { Valeur = !Valeur; }
    void MontantRef(Currency& Valeur) { Valeur.scaled += 10000; }
    void JourRef(Date& Valeur) { Valeur.days += 1; }
    void ChaîneRef(Text& Valeur) { Valeur += L"+"; }
    void VariableRef(Variant& Valeur);
    void MorceauRef(eFileN& Valeur) { Valeur = eFileN::efAll; }
    void ObjetRef(HostObject& Valeur) { Valeur = HostObject(); }
    void CadreRef(records::Rect& Valeur) { Valeur.Right += Valeur.Left; }
    void Lue(const Text&) {}
    Text Deux(Text& Un, Text& Autre);

    // Optional parameters, without and with declared defaults.
    Text SansDéfaut(std::int16_t Nombre, Text Chaîne, bool Vrai, double Réel, VariantView Quoi,
                    HostObject Qui, Text& Ref);
    Text AvecDéfaut(std::int16_t Nombre, Text Chaîne, bool Vrai, bool Faux, std::uint8_t Octet, float Réel,
                    eFileN Morceau, bool& Ref);

    // Properties.
    Text readTitle() const { return title_; }
    void writeTitle(Text value) { title_ = std::move(value); }
    std::int32_t readElement(std::int16_t index) const;
    void writeElement(std::int16_t index, std::int32_t value);
    HostObject readTarget() const { return target_; }
    void writeTarget(HostObject value) { target_ = std::move(value); }

    // A name that is not an identifier.
    std::int16_t spaced() { return 7; }

    // Failures.
    void Échoue(std::int32_t Numéro);
    void Explose(std::int16_t Comment);
    Text ChangeEtÉchoue(Text& Valeur);

    // Members in the middle of which the host's code runs: what they have then is what they were given.
    std::int32_t NombreTenu(const std::int32_t& Valeur);
    Text TexteTenu(TextView Valeur);
    Text TexteRefTenu(const Text& Valeur);
    Variant VariableTenue(VariantView Valeur);
    Variant VariableRefTenue(const Variant& Valeur);
    HostObject ObjetTenu(HostObject Valeur);
    HostObject ObjetRefTenu(const HostObject& Valeur);
    // Given by reference and left alone.
    void Laisse(std::int32_t& Nombre, Text& Chaîne, bool& Vrai, Variant& Quoi, HostObject& Qui);
    void LaisseCadre(records::Rect& Valeur);
    // Given by reference and changed after the host's code has run; what was given comes back.
    std::int32_t ChangeNombre(std::int32_t& Valeur);
    Text ChangeTexte(Text& Valeur);
    Variant ChangeVariable(Variant& Valeur);
    records::Rect ChangeCadre(records::Rect& Valeur);

    // Two arguments, of which the second may be asked for its default property. The first is viewed.
    Text TexteEtNombre(TextView Texte, std::int32_t Nombre);
    Text TexteRefEtNombre(const Text& Texte, std::int32_t Nombre);
    Text VariableEtNombre(VariantView Texte, std::int32_t Nombre);
    // By reference, and a result.
    Variant VariableOuErreur(std::int32_t& Numéro);
    records::Rect CadreOuErreur(std::int32_t Numéro);

private:
    Text title_;
    std::int32_t elements_[3] = {};
    HostObject target_;
};

/// The code of the host that runs once in the middle of the next member that lets it.
void duringNextCall(std::function<void()> hostCode);

extern const Library specimenLibrary;
const Publication& publicationOf(Of<Specimen>);

/// Writes the specimen's type library to a temporary file on first use.
const wchar_t* specimenFile();

}  // namespace vorla::test

namespace vorla {

template <>
inline constexpr ClassEntry classEntry<test::Specimen>{L"Specimen", 0x1F, Instancing::creatable,
                                                       test::specimenLibrary, L"For tests."};

}  // namespace vorla
