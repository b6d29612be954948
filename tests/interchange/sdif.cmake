# tests of the SDIF and Commlink records
