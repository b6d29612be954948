# the import screen
