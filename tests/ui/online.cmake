# event/unzip/online screen tests
