# tests: online
