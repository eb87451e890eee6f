# Empties the private test homes so every run starts from a clean account.
file(REMOVE_RECURSE ${ROOT})
file(MAKE_DIRECTORY ${ROOT})
