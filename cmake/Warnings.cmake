add_compile_options(-Wall -Wextra -Wpedantic -Wshadow=local -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wformat=2)
# Under the sanitizers g++ warns of conversions in the code that it adds itself.
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_compile_options(-Werror)
endif()
# g++ 12 sees overlaps and overflows in std::string's own operator+ that are not there.
add_compile_options(-Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
