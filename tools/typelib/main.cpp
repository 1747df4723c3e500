// Writes the component's type library: write_type_library FILE
#include <cstdio>

#include "frame/com/catalogue.h"
#include "typelib/type_library_writer.h"

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: write_type_library FILE\n");
        return 2;
    }
    try {
        vorla::typelib::write(vorla::vorla6, vorla::catalogue(), arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "write_type_library: %s\n", error.what());
        return 1;
    }
}
