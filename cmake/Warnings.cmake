add_compile_options(-Wall -Wextra -Wpedantic -Wshadow=local -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wformat=2 -Werror)
