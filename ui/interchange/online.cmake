# event, unzip and online-service screens
