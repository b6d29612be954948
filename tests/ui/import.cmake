# import screen tests
