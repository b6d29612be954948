# The certification pass, file statistics and reading an import file.
