# tests of this area
