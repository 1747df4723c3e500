#include "system/file_sizes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "outcome.h"

namespace vorla {
namespace {

// Formats that name themselves and their number; the grouped one is padded as the system pads it.
class NamingFormats final : public SizeFormats {
public:
    Text whole(double number) const override { return named(L"whole", number); }
    Text brief(double number) const override { return named(L"brief", number); }
    Text standard(double number) const override { return named(L"standard", number); }
    Text grouped(double number) const override { return L"   " + named(L"grouped", number) + L" "; }

private:
    static Text named(const wchar_t* name, double number) {
        wchar_t written[80];
        std::swprintf(written, 80, L"%ls:%.17g", name, number);
        return written;
    }
};

struct Row {
    double bytes;
    Outcome<Text> brief;
    Outcome<Text> full;
};

constexpr double K = 1024, M = K * K, G = M * K, T = G * K;

void expectSizes(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(outcomeOf([&] { return sizeText(row.bytes, true, NamingFormats()); }), row.brief)
            << row.bytes;
        EXPECT_EQ(outcomeOf([&] { return sizeText(row.bytes, false, NamingFormats()); }), row.full)
            << row.bytes;
    }
}

TEST(FileSizes, UpToOneStepAreInBytes) {
    expectSizes({
        {0, L"whole:0 octet(s)", L"whole:0 octet(s)"},
        {1, L"whole:1 octet(s)", L"whole:1 octet(s)"},
        {1023, L"whole:1023 octet(s)", L"whole:1023 octet(s)"},
        {1024, L"whole:1024 octet(s)", L"whole:1024 octet(s)"},
        {0.5, L"brief:0.5 octet(s)", L"standard:0.5 octet(s)"},
        {-1, L"whole:-1 octet(s)", L"whole:-1 octet(s)"},
        {-1.5, L"brief:-1.5 octet(s)", L"standard:-1.5 octet(s)"},
        {-5000, L"whole:-5000 octet(s)", L"whole:-5000 octet(s)"},
    });
}

TEST(FileSizes, TakeTheNextUnitAboveOneStep) {
    expectSizes({
        {1536, L"brief:1.5 Ko", L"standard:1.5 Ko   (grouped:1536 octets)"},
        {2048, L"whole:2 Ko", L"whole:2 Ko   (grouped:2048 octets)"},
        // 1/1024 is exact in binary.
        {1025, L"brief:1.0009765625 Ko", L"standard:1.0009765625 Ko   (grouped:1025 octets)"},
        {1024.5, L"brief:1.00048828125 Ko", L"standard:1.00048828125 Ko   (grouped:1024.5 octets)"},
        {M, L"whole:1024 Ko", L"whole:1024 Ko   (grouped:1048576 octets)"},
        {2 * M, L"whole:2 Mo", L"whole:2 Mo   (grouped:2097152 octets)"},
        {G, L"whole:1024 Mo", L"whole:1024 Mo   (grouped:1073741824 octets)"},
        {1.5 * G, L"brief:1.5 Go", L"standard:1.5 Go   (grouped:1610612736 octets)"},
        {T, L"whole:1024 Go", L"whole:1024 Go   (grouped:1099511627776 octets)"},
        {2 * T, L"whole:2 To", L"whole:2 To   (grouped:2199023255552 octets)"},
    });
}

TEST(FileSizes, EndWithTo) {
    expectSizes({
        {1024 * T, L"whole:1024 To", L"whole:1024 To   (grouped:1125899906842624 octets)"},
        {5 * K * T, L"whole:5120 To", L"whole:5120 To   (grouped:5629499534213120 octets)"},
        {4.5 * K * T + T / 2, L"brief:4608.5 To", L"standard:4608.5 To   (grouped:5067099336605696 octets)"},
    });
}

TEST(FileSizes, OfNoNumberRaiseOverflow) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectSizes({{infinity, Raises(6), Raises(6)},
                 {-infinity, Raises(6), Raises(6)},
                 {std::nan(""), Raises(6), Raises(6)}});
}

}  // namespace
}  // namespace vorla
