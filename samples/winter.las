{
  "layerStateFile": 1,
  "name": "Winter",
  "description": "The garden asleep: planting and pond off, the terrace in grey",
  "restores": ["on", "color"],
  "currentLayer": "Base",
  "savedWithViewport": false,
  "layers": [
    {"name": "Base", "on": true, "frozen": false, "viewportFrozen": false, "locked": false, "plot": true,
     "newViewportFrozen": false, "color": 7, "linetype": "Continuous", "lineWeight": -3, "plotStyle": "Normal"},
    {"name": "L-HARD-PATT", "on": true, "frozen": false, "viewportFrozen": false, "locked": false, "plot": true,
     "newViewportFrozen": false, "color": [190, 194, 200], "linetype": "Continuous", "lineWeight": 13, "plotStyle": "Normal"},
    {"name": "L-PLNT-BEDS", "on": false, "frozen": false, "viewportFrozen": false, "locked": false, "plot": true,
     "newViewportFrozen": false, "color": 8, "linetype": "Continuous", "lineWeight": 25, "plotStyle": "Normal"},
    {"name": "L-PLNT-SHRB", "on": false, "frozen": false, "viewportFrozen": false, "locked": false, "plot": true,
     "newViewportFrozen": false, "color": 8, "linetype": "Continuous", "lineWeight": 18, "plotStyle": "Normal"},
    {"name": "L-WATR", "on": false, "frozen": false, "viewportFrozen": false, "locked": false, "plot": true,
     "newViewportFrozen": false, "color": 4, "linetype": "Continuous", "lineWeight": 25, "plotStyle": "Normal"}
  ]
}
