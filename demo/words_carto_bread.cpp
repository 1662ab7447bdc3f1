#include "words.hpp"

namespace vellix::demo {

Book aSmallCartography() {
  return {
      .id = "carto",
      .title = "A Small Cartography",
      .titleLines = {"A Small", "Cartography"},
      .author = "Henrike Dahl",
      .tagline = "Essays on maps that nobody ordered",
      .blurb =
          "A map of a kitchen drawn by smell. A chart of the silences in a long marriage. The "
          "coastline of a tablecloth. In these eleven essays Henrike Dahl walks the places that "
          "are too small for an atlas and finds them, on the whole, to be larger than expected.",
      .quote = "“She makes a doormat feel like a frontier.”",
      .isbn = "9799000003401",
      .chapters = {"On Scale", "The Tablecloth Coast"},
      .opening =
          {"Every map begins with a decision to leave something out. The first map I ever drew "
           "left out my brother, with whom I was not speaking, and so showed a house of five "
           "rooms in which one room had no door. My mother pinned it to the larder. Visitors "
           "admired the stairs.",
           "I have drawn a good many maps since, most of them of places that did not need one. A "
           "drawer. A puddle, at hourly intervals. The route taken by a rumour through a village "
           "of ninety people, with the points at which it was improved. None of these has ever "
           "helped anyone to arrive.",
           "That is not what they are for. A large map tells you where you are; a small one asks "
           "whether you are sure. Draw the table at which you eat, at a scale of one to one, and "
           "you will find that it has regions. There is a north to it. There is a place where the "
           "light comes in and a place where the bills are put, and between them runs a border "
           "that everyone in the family observes and no one has ever seen.",
           "The surveyors who taught me had a word for the moment at which two measurements of "
           "the same line refuse to agree. They called it the closing error, and they spoke of it "
           "with affection, as one speaks of a relative who drinks. It could be made small. It "
           "could be shared out fairly among the stations. It could not be made to go away."},
      .stock =
          {"{when} I paced out {where} and found it eleven steps longer than I had been told.",
           "A legend is the part of a map that admits it has been talking in code.",
           "There is no symbol for {thing}, though every house has one.",
           "{who} kept the only complete map of {where}, and kept it folded.",
           "I drew {thing} in red, since I had run out of any other way to apologise.",
           "The contour lines crowd together where a thing is steep, and so do people.",
           "“You have put the well in the wrong place,” said {who}, and she was right, and I have "
           "left it there.",
           "{when} the light lies along {where} and every fold becomes a range of hills.",
           "To measure a coast you must first decide how small a stone is allowed to matter.",
           "Nothing on a map is ever as blue as {thing}.",
           "I asked {who} to draw the way home from memory, and it came out shorter than the way "
           "there.",
           "What we call empty is only what we have not been asked to name.",
           "The edge of the paper is the one border that no traveller disputes.",
           "In the old atlases {where} is covered by a drawing of a wind with fat cheeks, which is "
           "a way of saying nobody had been.",
           "{who} and I walked the line together and did not agree about a single yard of it.",
           "A good map should have at least one mistake in it, so that the reader has something to "
           "find.",
           "{when} I found {thing} pressed between two sheets, and had to redraw the whole valley.",
           "Distance, at this scale, is mostly a matter of whose turn it is.",
           "I have never trusted a compass that was easy to read.",
           "The scale bar said one thing and {who}, who had carried the water, said another."},
      .who = {"my aunt Solveig", "the second surveyor", "the postman", "my brother",
              "a woman who kept bees"},
      .where = {"the kitchen", "the far side of the orchard", "the tablecloth", "the parish bound",
                "the landing"},
      .thing = {"the cold step", "a torn corner", "the sound of the pump", "the missing door",
                "a pressed fern"},
      .when = {"In the first week of March", "Late in the afternoon", "Once, in a hard winter",
               "Every autumn", "On the third visit"}};
}

Book winterBread() {
  return {
      .id = "bread",
      .title = "Winter Bread",
      .titleLines = {"Winter", "Bread"},
      .author = "Anselm Roke",
      .tagline = "Forty loaves for the dark months",
      .blurb =
          "Bread asks for three things, and the cold gives you two of them: time, and a reason to "
          "stay indoors. Anselm Roke baked for thirty winters in a village that the road forgets "
          "from November to March. Here are his forty loaves, with the stories that rose beside "
          "them.",
      .quote = "“The only cookery book I have ever read under a blanket.”",
      .isbn = "9799000004507",
      .chapters = {"The First Cold Morning", "Rye and Patience"},
      .opening =
          {"Bread asks for three things: flour, water and time. Salt is good manners. Yeast is "
           "only company. In summer a baker is short of time and so he makes do with yeast; but "
           "in the dark months there is time in every corner of the house, and it costs nothing "
           "to let some of it into the dough.",
           "Begin the evening before. Stir a spoon of starter into a bowl of cold water until the "
           "water looks as if it has heard something. Add flour by the handful, not because a "
           "handful is a measure but because your hand will learn what enough feels like, and a "
           "scale will not.",
           "Cover the bowl with a plate. Put it where you would put a cat. Then go to bed, and do "
           "not get up to look, for nothing you can do will hurry it and it knows when it is "
           "being watched.",
           "In the morning the dough will have climbed the side of the bowl and left a mark, as "
           "the tide does. Turn it out on the board. Fold it from the four winds to the middle, "
           "once, and again, and leave it alone while you see to the stove. When it has stopped "
           "trembling, shape it, and set it seam down in a floured cloth."},
      .stock =
          {"{when} the oven wants a second log and the baker wants a second cup.",
           "A crust should sound, when you knock on it, like somebody in.",
           "{who} used to say that you cannot teach a loaf, only introduce it to the heat.",
           "Dust the board, dust your hands, and leave {thing} where you can reach it without "
           "thinking.",
           "If the dough sticks to you, wait; if it still sticks, you were not as patient as you "
           "think.",
           "Set it by {where} and turn it once, so that both sides have the same opinion of the "
           "fire.",
           "Rye does not rise so much as consider rising.",
           "{when} {who} came to the back door with {thing} under her arm and frost in her hair.",
           "Weigh the salt. It is the one thing in this book that you should weigh.",
           "Cut the top with a single stroke, as if you were signing something.",
           "The first slice belongs to the person who lit the stove, and there is no appeal.",
           "In a cold kitchen, count by smell: flour, then apples, then nuts, then bread.",
           "{who} kept {thing} in {where} from one November to the next, and it was never once "
           "clean.",
           "Let it cool on the rack until you can hold it to your cheek.",
           "A loaf that has split at the side has only told you where it wanted to be cut.",
           "{when} we ate it standing, with butter, and nobody spoke until the end.",
           "Keep back a piece of the dough, the size of an egg, for the next time and the time "
           "after that.",
           "Nothing in the house is older than the starter, except the debt on the mill.",
           "Wrap the second loaf in a cloth and walk it over to {who}.",
           "Snow on {where}, steam on the window, and four hours in which to do nothing else."},
      .who = {"my mother", "the miller’s wife", "old Father Kest", "the schoolmaster",
              "our neighbour Brid"},
      .where = {"the warm step", "the flour bin", "the north window", "the shelf above the stove",
                "the cold pantry"},
      .thing = {"the long peel", "a wet cloth", "the scraper", "a jar of seeds", "the small knife"},
      .when = {"Before the windows are light", "On baking day", "When the wind is in the east",
               "At about ten o’clock", "The year the bridge froze"}};
}

}  // namespace vellix::demo
