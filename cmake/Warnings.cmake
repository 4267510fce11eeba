# Warnings are errors everywhere; src/ adds its own stricter set.
add_compile_options(-Wall -Wextra -Wshadow -Wnon-virtual-dtor -Werror)
