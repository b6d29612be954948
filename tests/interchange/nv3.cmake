# tests of the NV3 records
