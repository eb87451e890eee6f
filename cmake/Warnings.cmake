# Warnings are errors for the project's own code.
function(tessaro_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()
